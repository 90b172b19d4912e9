#include "practice/game/arena.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "practice/wire/player_text.h"

namespace korvanta::practice {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kFewestContenders = 2;
/// A win without opponents counts when they have played at least this long.
constexpr int kFewestTicks = 5;
/// Names that one line shows.
constexpr std::size_t kMostNamed = 12;

// Points of Total Score.
constexpr int kScoreForWin = 300;
constexpr int kScoreForAllianceWin = 200;

/// "Ann", "Ann and Bob", "Ann, Bob and Cid".
template <typename People>
std::string Names(const People& people) {
  std::string names;
  std::size_t left = people.size();
  std::size_t named = 0;
  for (const auto* one : people) {
    --left;
    names += one->name();
    if (++named == kMostNamed && left > 1) {
      return names + " and " + std::to_string(left) + " more";
    }
    names += left == 0 ? "" : left == 1 ? " and " : ", ";
  }
  return names;
}

}  // namespace

Arena::Arena(Players& players, Tournament& tournament, std::mt19937_64& dice, double pace,
             Journal journal)
    : players_(players),
      tournament_(tournament),
      dice_(dice),
      pace_(pace),
      journal_(std::move(journal)) {}

void Arena::Step(milliseconds now) {
  now_ = now;
  if (!due_ || now < *due_) {
    return;
  }
  switch (phase_) {
    case Phase::Gathering:
      Begin();
      break;
    case Phase::Playing:
      Tick();
      break;
    case Phase::Resting:
      Clear();
      break;
  }
}

void Arena::Enter(Player& player) {
  if (Seat(player) != nullptr) {
    players_.Refuse(player, "You are in the game already.");
    return;
  }
  player.is_away = false;
  players_.ListChanges();
  const bool may_return = phase_ == Phase::Playing && LostSeatOf(player) != lost_.end();
  if (may_return || (phase_ == Phase::Playing && !is_for_teams_ && game_->IsOpen() &&
                     !IsMeantForNextGame(player))) {
    player.is_ready = true;
    Comment(player.name() + (may_return ? " is back in the game" : " enters the game"));
    const Contender& contender = TakeSeat(player, {});
    players_.Answer(player, std::string("You enter the game that is on, with ") +
                                Counted(contender.points, "point") +
                                (may_return ? "." : " to catch up."));
    return;
  }
  const bool was_ready = std::exchange(player.is_ready, true);
  const bool was_waiting = !due_;
  GatherIfEnough();
  players_.Answer(player, std::string(was_ready ? "You are ready for the next game already"
                                                : "You are ready for the next game") +
                              (phase_ == Phase::Playing ? "; one is being played."
                               : due_                   ? ", which begins in " + TimeLeft() + "."
                                      : "; it begins when another player is ready."));
  if (phase_ == Phase::Gathering && !was_waiting) {
    players_.Send(player, Clock());
  }
}

void Arena::Leave(Player& player) {
  if (Seat(player) == nullptr) {
    if (!player.is_ready) {
      players_.Refuse(player, "You are in no game.");
      return;
    }
    player.is_ready = false;
    players_.ListChanges();
    players_.Answer(player, "You do not take part in the next game.");
    return;
  }
  player.is_ready = false;
  left_.insert(player.account);
  RemoveFromGame(*Seat(player), "leaves the game");
  players_.Answer(player, "You have left the game.");
  players_.Send(player, messages::ClearBoard());
}

void Arena::Forget(const Account& account) {
  if (phase_ != Phase::Playing) {
    return;
  }
  if (const Contender* contender = game_->Find(account)) {
    lost_.push_back(*contender);
    RemoveFromGame(*contender, "is gone from the game");
  }
}

void Arena::Hurry(Player& player) {
  if (phase_ == Phase::Playing) {
    players_.Refuse(player, "A game is being played.");
    return;
  }
  if (!EnoughAreReady()) {
    players_.Refuse(player, "A game takes two players who are ready.");
    return;
  }
  if (phase_ == Phase::Resting) {
    Clear();
  }
  Begin();
}

const Contender* Arena::ContenderOf(const Player& player) const {
  return phase_ == Phase::Playing ? game_->Find(*player.account) : nullptr;
}

Contender* Arena::Seat(const Player& player) {
  return phase_ == Phase::Playing ? game_->Find(*player.account) : nullptr;
}

std::list<Contender>::iterator Arena::LostSeatOf(const Player& player) {
  return std::find_if(lost_.begin(), lost_.end(), [&](const Contender& contender) {
    return contender.account == player.account;
  });
}

bool Arena::IsMeantForNextGame(const Player& player) const {
  return left_.contains(player.account) ||
         (tournament_.is_game_set && tournament_.teams.TeamOf(player.name()) != nullptr);
}

bool Arena::EnoughAreReady() const {
  const auto& all = std::as_const(players_).all();
  const auto ready = std::count_if(all.begin(), all.end(),
                                   [](const auto& entry) { return entry.second.is_ready; });
  return static_cast<std::size_t>(ready) >= kFewestContenders;
}

/// A gathering starts its clock when there are enough for a game.
void Arena::GatherIfEnough() {
  if (phase_ == Phase::Gathering && !due_ && EnoughAreReady()) {
    due_ = now_ + kGathering;
    players_.SendToAll(Clock());
  }
}

void Arena::Begin() {
  std::vector<Player*> entrants;
  std::set<const Team*> teams;
  is_for_teams_ = tournament_.is_game_set;
  const auto gather = [&] {
    entrants.clear();
    teams.clear();
    for (auto& [key, player] : players_.all()) {
      const Team* team = tournament_.teams.TeamOf(player.name());
      const bool can_pay = player.account->figures.score >= tournament_.entry_fee;
      if (player.is_ready && (!is_for_teams_ || (team != nullptr && can_pay))) {
        entrants.push_back(&player);
        teams.insert(team);
      }
    }
  };
  gather();
  if (is_for_teams_ && teams.size() < kFewestContenders) {
    players_.AnnounceToAll(
        "Too few teams are ready for the tournament game; an open one is "
        "played first.");
    is_for_teams_ = false;
    gather();
  }
  if (entrants.size() < kFewestContenders) {
    due_.reset();
    players_.AnnounceToAll("Too few players are ready for a game.");
    return;
  }
  phase_ = Phase::Playing;
  game_.emplace(dice_);
  left_.clear();
  lost_.clear();
  due_ = now_ + kTick;
  ++games_;
  purse_ = 0;
  tournament_.is_game_set &= !is_for_teams_;
  const std::string title = (is_for_teams_ ? "Tournament game " : "Game ") + std::to_string(games_);
  const std::string names = Names(entrants);
  players_.AnnounceToAll(
      title + " begins: " + names +
      (is_for_teams_ ? ". Your team wins together!" : ". Research, attack, ally!"));
  journal_(title + " begins: " + names);
  for (Player* player : entrants) {
    std::string team;
    if (is_for_teams_) {
      team = tournament_.teams.TeamOf(player->name())->name;
      std::int64_t& score = player->account->figures.score;
      score -= tournament_.entry_fee;
      purse_ += tournament_.entry_fee;
    }
    TakeSeat(*player, team);
  }
  if (is_for_teams_) {
    for (auto& [key, player] : players_.all()) {
      if (player.is_ready && Seat(player) == nullptr) {
        player.is_ready = false;
        players_.Refuse(player,
                        "The game that begins is for members of teams who can pay the "
                        "entry fee.");
      }
    }
  }
  players_.ListChanges();
}

/// A new one, or the one that the player has been lost from.
const Contender& Arena::TakeSeat(Player& player, std::string_view team) {
  const auto lost = LostSeatOf(player);
  const bool is_back = lost != lost_.end();
  const Contender& contender = is_back ? game_->Return(*lost) : game_->Enter(*player.account, team);
  std::string board;
  for (Topic topic : kTopicsWithLevels) {
    if (const int level = contender.LevelOf(topic); level > 0) {
      board += messages::Researched(Code(topic), level);
    }
  }
  if (is_back) {
    lost_.erase(lost);
  }
  players_.Send(player, Clock() + board + messages::ResearchPoints(contender.points) +
                            messages::PlaySound(Sound::GameStart));
  return contender;
}

void Arena::Tick() {
  game_->Tick();
  due_ = *due_ + kTick;
  const std::string news = messages::Caption("Game " + std::to_string(games_) + ", tick " +
                                             std::to_string(game_->ticks())) +
                           Clock() + messages::PlaySound(Sound::Tick);
  for (const Contender& contender : game_->contenders()) {
    Tell(contender, news + messages::ResearchPoints(contender.points));
  }
}

/// Everyone in `winners` wins; `finder` has the Golden Knowledge, and is null when all others have
/// left.
void Arena::End(const std::vector<Contender*>& winners, const Contender* finder) {
  const std::string names = Names(winners);
  for (Contender* winner : winners) {
    Tell(*winner, messages::PlaySound(Sound::Win));
    Figures& figures = winner->account->figures;
    figures.score += purse_ / static_cast<std::int64_t>(winners.size());
    if (finder == nullptr && game_->ticks() < kFewestTicks) {
      continue;
    }
    const bool alone = winners.size() == 1;
    if (alone || winner == finder) {
      ++figures.wins;
    }
    if (!alone) {
      ++figures.alliance_wins;
    }
    figures.score += alone || winner == finder ? kScoreForWin : kScoreForAllianceWin;
  }
  if (finder != nullptr) {
    players_.AnnounceToAll(finder->name() + " has researched the Golden Knowledge!");
  }
  std::string verdict = names + (winners.size() == 1 ? " wins" : " win") + " game " +
                        std::to_string(games_) + " after " + Counted(game_->ticks(), "tick");
  journal_(verdict);
  if (purse_ > 0) {
    verdict += " and the purse of " + std::to_string(purse_);
  }
  players_.AnnounceToAll(verdict + "!");
  phase_ = Phase::Resting;
  due_ = now_ + kRest;
  for (const Contender& contender : game_->contenders()) {
    Tell(contender, messages::Pause(SecondsLeft()));
    if (Player* player = players_.Find(contender.name())) {
      player->is_ready = tournament_.is_game_set && IsMeantForNextGame(*player);
    }
  }
  players_.ListChanges();
}

void Arena::Clear() {
  phase_ = Phase::Gathering;
  due_.reset();
  game_.reset();
  players_.SendToAll(is_for_teams_ ? messages::ClearTournamentBoard() : messages::ClearBoard());
  GatherIfEnough();
  players_.AnnounceToAll(tournament_.is_game_set
                             ? "The next game is the tournament game. Members of teams, choose "
                               "\"Enter Game\" (Ctrl+E)!"
                             : "The next game is open: choose \"Enter Game\" (Ctrl+E) to take "
                               "part.");
}

void Arena::RemoveFromGame(const Contender& contender, std::string_view what_it_did) {
  const std::string name = contender.name();
  game_->Leave(contender);
  players_.ListChanges();
  Comment(name + " " + std::string(what_it_did));
  const Contender& first = game_->contenders().front();
  const std::vector<Contender*> side = game_->WinnersWith(first);
  if (side.size() == game_->contenders().size()) {
    End(side, nullptr);
  }
}

void Arena::Comment(std::string_view words) {
  const std::string line = messages::ChatLine(MessageKind::Plain, "*", words);
  for (const Contender& contender : game_->contenders()) {
    Tell(contender, line);
  }
}

void Arena::Tell(const Contender& contender, std::string_view messages) {
  if (const Player* player = players_.Find(contender.name())) {
    players_.Send(*player, messages);
  }
}

/// Game time in real time; at least 1.
std::int64_t Arena::Seconds(milliseconds time) const {
  const double seconds = std::chrono::duration<double>(time).count() / pace_;
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(std::ceil(seconds)));
}

std::int64_t Arena::SecondsLeft() const { return Seconds(*due_ - now_); }

std::string Arena::Clock() const { return messages::Clock(SecondsLeft()); }

/// Until the next tick, or until the next game at the earliest.
std::string Arena::TimeLeft() const {
  const auto seconds =
      phase_ == Phase::Resting ? Seconds(*due_ - now_ + kGathering) : SecondsLeft();
  return Counted(seconds, "second");
}

}  // namespace korvanta::practice

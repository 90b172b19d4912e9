#include "practice/arena.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "practice/player_text.h"

namespace korvanta::practice {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kFewestContenders = 2;
/// A win without opponents counts when they have played at least this long.
constexpr int kFewestTicks = 5;
/// Names that one line shows.
constexpr std::size_t kMostNames = 12;

// Points of Total Score.
constexpr int kScoreForWin = 300;
constexpr int kScoreForAllianceWin = 200;

std::string Plural(std::size_t count, const std::string& word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

/// "Ann", "Ann and Bob", "Ann, Bob and Cid".
template <typename People>
std::string Names(const People& people) {
  std::string names;
  std::size_t left = people.size();
  std::size_t named = 0;
  for (const auto* one : people) {
    --left;
    names += one->name();
    if (++named == kMostNames && left > 1) {
      return names + " and " + std::to_string(left) + " more";
    }
    names += left == 0 ? "" : left == 1 ? " and " : ", ";
  }
  return names;
}

int Code(Topic topic) { return static_cast<int>(topic); }

/// All levels on one line, and whose side the contender is on.
std::string Board(const Contender& contender) {
  std::string board;
  for (Topic topic : kTopicsWithLevels) {
    board += std::string(TopicName(topic)) + " " + std::to_string(contender.LevelOf(topic)) +
             (topic == kTopicsWithLevels.back() ? "" : ", ");
  }
  if (contender.ally != nullptr) {
    board += "; allied with " + contender.ally->name();
  }
  return contender.team.empty() ? board : board + "; team " + contender.team;
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
  const auto lost = std::find_if(lost_.begin(), lost_.end(), [&](const Contender& contender) {
    return contender.account == player.account;
  });
  const bool may_return = phase_ == Phase::Playing && lost != lost_.end();
  if (may_return || (phase_ == Phase::Playing && !is_for_teams_ && game_->IsOpen() &&
                     !IsMeantForNextGame(player))) {
    player.is_ready = true;
    Comment(player.name() + (may_return ? " is back in the game" : " enters the game"));
    const Contender& contender = TakeSeat(player, {});
    players_.Answer(player, std::string("You enter the game that is on, with ") +
                                Plural(static_cast<std::size_t>(contender.points), "point") +
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

void Arena::Research(Player& player, std::string_view topic_code, std::string_view level_text) {
  Contender* self = SeatOrRefuse(player);
  if (self == nullptr) {
    return;
  }
  const auto topic = ReadTopic(topic_code);
  const auto level = NumberWithin(level_text, 1, kGoldenLevel);
  if (!topic || !level || (*topic == Topic::GoldenKnowledge) != (*level == kGoldenLevel)) {
    players_.Refuse(player, "There is no such topic or level.");
    return;
  }
  const Game::Research research = game_->DoResearch(*self, *topic, *level);
  if (!research.refusal.empty()) {
    players_.Refuse(player, research.refusal);
    return;
  }
  if (research.wins) {
    Tell(*self, messages::ResearchPoints(self->points));
    End(game_->WinnersWith(*self), self);
    return;
  }
  Tell(*self, messages::Researched(Code(*topic), research.level) +
                  messages::ResearchPoints(self->points) + messages::PlaySound(Sound::Research));
  if (self->IsNearWinning()) {
    players_.ListChanges();
    if (!std::exchange(self->has_been_near_winning, true)) {
      players_.AnnounceToAll(player.name() + " needs only the Golden Knowledge now!");
    }
  }
}

void Arena::Attack(Player& player, std::string_view name) {
  Contender* self = SeatOrRefuse(player);
  Contender* target = self == nullptr ? nullptr : Opponent(player, *self, name);
  if (target == nullptr) {
    return;
  }
  const Game::Attack attack = game_->DoAttack(*self, *target);
  if (!attack.refusal.empty()) {
    players_.Refuse(player, attack.refusal);
    return;
  }
  Tell(*self, messages::ResearchPoints(self->points) + messages::PlaySound(Sound::Attack));
  if (attack.broke_alliance) {
    Comment(player.name() + " betrays " + target->name() + "!");
  }
  if (attack.was_blocked) {
    Tell(*target, messages::PlaySound(Sound::Attacked));
    Comment(target->name() + " blocks an attack by " + player.name());
    return;
  }
  Tell(*target,
       messages::Attacked(Code(attack.topic), attack.level) + messages::PlaySound(Sound::Attacked));
  Comment(player.name() + " attacks " + target->name() + ", whose " +
          std::string(TopicName(attack.topic)) + " falls to level " + std::to_string(attack.level));
  players_.ListChanges();
}

void Arena::Ally(Player& player, std::string_view name) {
  Contender* self = SeatOrRefuse(player);
  Contender* other = self == nullptr ? nullptr : Opponent(player, *self, name);
  if (other == nullptr) {
    return;
  }
  const Game::Alliance alliance = Game::Propose(*self, *other);
  if (!alliance.refusal.empty()) {
    players_.Refuse(player, alliance.refusal);
  } else if (alliance.is_formed) {
    Comment(player.name() + " and " + other->name() + " are allied now");
    players_.ListChanges();
  } else {
    players_.Answer(player, "You offer " + other->name() + " an alliance. It is formed when " +
                                other->name() + " offers one to you.");
    if (const Player* listener = players_.Find(other->name())) {
      players_.Answer(*listener, player.name() + " offers you an alliance. To agree, right-click " +
                                     player.name() + " and choose \"Form Alliance\".");
    }
  }
}

void Arena::BreakAlliance(Player& player) {
  Contender* self = SeatOrRefuse(player);
  if (self == nullptr) {
    return;
  }
  if (self->ally == nullptr) {
    players_.Refuse(player, "You have no ally.");
    return;
  }
  Comment(player.name() + " and " + self->ally->name() + " are allied no longer");
  Game::EndAlliance(*self);
  players_.ListChanges();
}

void Arena::Explain(Player& player, std::string_view topic_code) {
  const auto topic = ReadTopic(topic_code);
  if (!topic) {
    players_.Refuse(player, "There is no such topic.");
    return;
  }
  std::string text = std::string(TopicName(*topic)) + ": " + std::string(TopicPurpose(*topic));
  const Contender outsider{player.account};
  const Contender* self = Seat(player);
  const Contender& contender = self == nullptr ? outsider : *self;
  if (*topic == Topic::GoldenKnowledge) {
    text += " It costs " + std::to_string(Game::Cost(contender, *topic)) + " points.";
  } else if (const int level = contender.LevelOf(*topic); level == kTopLevel) {
    text += " You have reached its last level.";
  } else {
    text += " Level " + std::to_string(level + 1) + " costs " +
            std::to_string(Game::Cost(contender, *topic)) + " points.";
  }
  players_.Answer(player, self == nullptr ? text : text + " " + Points(*self));
}

void Arena::Describe(Player& player) {
  if (phase_ != Phase::Playing) {
    players_.Answer(player, due_ ? "The next game begins in " + TimeLeft() + " at the earliest."
                                 : "The next game begins when two players are ready.");
    return;
  }
  players_.Answer(player, "Game " + std::to_string(games_) + ", tick " +
                              std::to_string(game_->ticks()) + "; the next in " + TimeLeft() + ".");
  for (const Contender& contender : game_->contenders()) {
    players_.Answer(player, "  " + contender.name() + ": " + Board(contender));
  }
  if (const Contender* self = Seat(player)) {
    players_.Answer(player, Points(*self));
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
  return const_cast<Arena*>(this)->Seat(player);
}

Contender* Arena::Seat(const Player& player) {
  return phase_ == Phase::Playing ? game_->Find(*player.account) : nullptr;
}

Contender* Arena::SeatOrRefuse(Player& player) {
  Contender* self = Seat(player);
  if (self == nullptr) {
    players_.Refuse(player, phase_ == Phase::Playing
                                ? "You are not in the game. Choose \"Enter Game\" (Ctrl+E)."
                                : "No game is being played right now. Choose \"Enter Game\" "
                                  "(Ctrl+E) for the next one.");
  }
  return self;
}

Contender* Arena::Opponent(Player& player, const Contender& self, std::string_view name) {
  Player* other = players_.Find(Trimmed(name));
  if (other == nullptr) {
    players_.Refuse(player, "That player is not online.");
    return nullptr;
  }
  Contender* opponent = Seat(*other);
  if (opponent == nullptr) {
    players_.Refuse(player, other->name() + " is not in the game.");
  } else if (opponent == &self) {
    players_.Refuse(player, "That is you.");
    return nullptr;
  }
  return opponent;
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
  const auto lost = std::find_if(lost_.begin(), lost_.end(), [&](const Contender& contender) {
    return contender.account == player.account;
  });
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
                        std::to_string(games_) + " after " +
                        Plural(static_cast<std::size_t>(game_->ticks()), "tick");
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
  return Plural(static_cast<std::size_t>(seconds), "second");
}

std::string Arena::Points(const Contender& contender) const {
  return "You have " + Plural(static_cast<std::size_t>(contender.points), "point") + " and get " +
         std::to_string(game_->Income(contender)) + " with each tick.";
}

}  // namespace korvanta::practice

#include "practice/game/arena.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

using std::chrono::milliseconds;

// In the time of the game, which a pace makes faster or slower than real time.
constexpr std::chrono::seconds kTick{15};
constexpr std::chrono::seconds kGathering{15};
constexpr std::chrono::seconds kRest{20};

constexpr std::ptrdiff_t kFewestContenders = 2;
/// A win without opponents counts when they have played at least this long.
constexpr int kFewestTicks = 5;
/// Names that one line shows.
constexpr std::size_t kMostNamed = 12;

// Points of Total Score.
constexpr int kScoreForWin = 300;
constexpr int kScoreForAllianceWin = 200;

/// "Ann", "Ann and Bob", "Ann, Bob and Cid", "Ann, Bob, …, Lia and 7 more".
template <typename People>
std::string Names(const People& people) {
  std::vector<std::string> names(people.size());
  std::ranges::transform(people, names.begin(), [](const auto* one) { return one->name(); });
  if (names.size() > kMostNamed + 1) {
    names[kMostNamed] = std::to_string(names.size() - kMostNamed) + " more";
    names.resize(kMostNamed + 1);
  }
  const std::string last = names.back();
  names.pop_back();
  return names.empty() ? last : Joined(names, ", ") + " and " + last;
}

std::string BoardOf(const Contender& contender) {
  std::string board;
  for (TopicCode topic : kTopicsWithLevels) {
    board += Message<ServerMessage::TopicResearched>(topic, contender.LevelOf(topic));
  }
  return board + Message<ServerMessage::ResearchPoints>(contender.points);
}

}  // namespace

Arena::Arena(Players& players, Tournament& tournament, Dice& dice, double pace, Journal journal)
    : players_(players),
      tournament_(tournament),
      dice_(dice),
      pace_(pace),
      journal_(std::move(journal)) {}

void Arena::Step(milliseconds now) {
  now_ = now;
  if (!deadline_ || now < *deadline_) {
    return;
  }
  switch (phase_) {
    case Phase::Gathering:
      return Begin();
    case Phase::Playing:
      return Tick();
    case Phase::Resting:
      return Clear();
  }
}

void Arena::Enter(Player& player) {
  if (SeatOf(*player.account) != nullptr) {
    players_.Refuse(player, Refusal::InGameAlready);
    return;
  }
  player.is_away = false;
  const bool was_ready = std::exchange(player.is_ready, true);
  if (game_ && !is_for_teams_ && game_->IsOpen() && !IsMeantForNextGame(player)) {
    Comment(sentences::kEnters, {player.name()});
    const Contender& contender = game_->Enter(*player.account);
    SendStart(player, contender);
    players_.Say(player, sentences::kEnterGame, Counted(contender.points, "point"));
    return;
  }
  const bool clock_ran = deadline_.has_value();
  GatherIfEnough();
  const std::string when = Filled(game_       ? sentences::kWhenThisIsOver
                                  : deadline_ ? sentences::kWhenClockRuns
                                              : sentences::kWhenAnotherIsReady,
                                  {TimeLeft()});
  players_.Say(player, was_ready ? sentences::kReadyAlready : sentences::kReady, when);
  if (phase_ == Phase::Gathering && clock_ran) {
    players_.Send(player, Clock());
  }
}

void Arena::Leave(Player& player) {
  Contender* seat = SeatOf(*player.account);
  if (!std::exchange(player.is_ready, false)) {
    players_.Refuse(player, Refusal::NotWaiting);
  } else if (seat == nullptr) {
    players_.Say(player, sentences::kReadyNoLonger);
  } else {
    left_.insert(player.account);
    Remove(*seat, sentences::kLeaves, false);
    players_.Say(player, sentences::kLeaveGame);
    players_.Send(player, Message<ServerMessage::BoardCleared>());
  }
}

void Arena::Start(const Player& player) {
  const Refusal refusal = game_               ? Refusal::GameIsOn
                          : !EnoughAreReady() ? Refusal::TooFewPlayers
                                              : Refusal::None;
  if (players_.Refuse(player, refusal)) {
    return;
  }
  if (phase_ == Phase::Resting) {
    Clear();
  }
  Begin();
}

void Arena::Welcome(Player& player) {
  if (const Contender* contender = game_ ? game_->Return(*player.account) : nullptr) {
    player.is_ready = true;
    Comment(sentences::kReturns, {player.name()}, contender);
    players_.Send(player, BoardOf(*contender));
    SendStart(player, *contender);
    players_.Say(player, sentences::kSeatAgain, Counted(contender->points, "point"));
    return;
  }
  const bool clock_runs = phase_ == Phase::Gathering && deadline_;
  players_.Send(player, BoardOf(Contender{player.account}) +
                            (clock_runs ? Clock() : Message<ServerMessage::GameClock>(0)));
}

void Arena::Forget(const Account& account) {
  if (Contender* contender = SeatOf(account)) {
    Remove(*contender, sentences::kDisappears, true);
  }
}

bool Arena::IsMeantForNextGame(const Player& player) const {
  return left_.contains(player.account) ||
         (tournament_.IsGameSet() && tournament_.TeamOf(*player.account) != nullptr);
}

bool Arena::EnoughAreReady() const {
  return std::ranges::count_if(players_.all(), [](const auto& entry) {
           return entry.second.is_ready;
         }) >= kFewestContenders;
}

/// A gathering starts its clock when there are enough for a game.
void Arena::GatherIfEnough() {
  if (phase_ == Phase::Gathering && !deadline_ && EnoughAreReady()) {
    deadline_ = now_ + kGathering;
    players_.SendToAll(Clock());
  }
}

/// Everyone who takes part in the game that is to begin. Nobody when it would be one for teams and
/// fewer than two have come.
std::vector<Player*> Arena::Entrants() {
  std::vector<Player*> entrants;
  std::set<const Team*> teams;
  for (auto& [key, player] : players_.all()) {
    const Team* team = is_for_teams_ ? tournament_.TeamOf(*player.account) : nullptr;
    const bool can_pay = player.account->figures.score >= tournament_.terms().entry_fee;
    if (player.is_ready && (!is_for_teams_ || (team != nullptr && can_pay))) {
      entrants.push_back(&player);
      teams.insert(team);
    }
  }
  return is_for_teams_ && std::ssize(teams) < kFewestContenders ? std::vector<Player*>() : entrants;
}

void Arena::Begin() {
  is_for_teams_ = tournament_.IsGameSet();
  std::vector<Player*> entrants = Entrants();
  if (is_for_teams_ && entrants.empty()) {
    players_.SayToAll(sentences::kTooFewTeams);
    is_for_teams_ = false;
    entrants = Entrants();
  }
  if (std::ssize(entrants) < kFewestContenders) {
    deadline_.reset();
    players_.SayToAll(sentences::kTooFewPlayers);
    return;
  }
  phase_ = Phase::Playing;
  game_.emplace(dice_);
  left_.clear();
  deadline_ = now_ + kTick;
  ++number_;
  purse_ = 0;
  const std::string title =
      (is_for_teams_ ? "Tournament game " : "Game ") + std::to_string(number_);
  const std::string names = Names(entrants);
  players_.SayToAll(is_for_teams_ ? sentences::kTeamGameBegins : sentences::kGameBegins, title,
                    names);
  journal_(title + " begins: " + names);
  for (Player* player : entrants) {
    std::string team;
    if (is_for_teams_) {
      tournament_.GameBegins();
      team = tournament_.TeamOf(*player->account)->name;
      player->account->figures.score -= tournament_.terms().entry_fee;
      purse_ += tournament_.terms().entry_fee;
    }
    SendStart(*player, game_->Enter(*player->account, team));
  }
  for (auto& [key, player] : players_.all()) {
    if (player.is_ready && SeatOf(*player.account) == nullptr) {
      player.is_ready = false;
      players_.Refuse(player, Refusal::NotInTournamentGame);
    }
  }
}

void Arena::SendStart(const Player& player, const Contender& contender) {
  players_.Send(player, Clock() + Message<ServerMessage::ResearchPoints>(contender.points) +
                            Message<ServerMessage::Sound>(Sound::GameStart));
}

void Arena::Tick() {
  game_->Tick();
  deadline_ = *deadline_ + kTick;
  const std::string news =
      Message<ServerMessage::Caption>("Game " + std::to_string(number_) + ", tick " +
                                      std::to_string(game_->ticks())) +
      Clock() + Message<ServerMessage::Sound>(Sound::Tick);
  for (const Contender& contender : game_->contenders()) {
    players_.Send(*contender.account,
                  news + Message<ServerMessage::ResearchPoints>(contender.points));
  }
}

/// Everyone in `winners` wins; `finder` has the Golden Knowledge, and is null when all others have
/// left.
void Arena::End(const std::vector<Contender*>& winners, const Contender* finder) {
  const bool alone = winners.size() == 1;
  for (Contender* winner : winners) {
    players_.Send(*winner->account, Message<ServerMessage::Sound>(Sound::Win));
    Figures& figures = winner->account->figures;
    figures.score += purse_ / static_cast<std::int64_t>(winners.size());
    if (finder != nullptr || game_->ticks() >= kFewestTicks) {
      const bool is_full_win = alone || winner == finder;
      figures.wins += is_full_win ? 1 : 0;
      figures.alliance_wins += alone ? 0 : 1;
      figures.score += is_full_win ? kScoreForWin : kScoreForAllianceWin;
    }
  }
  if (finder != nullptr) {
    players_.SayToAll(sentences::kGoldenKnowledge, finder->name());
  }
  const std::string verdict = Names(winners) + (alone ? " wins" : " win") + " game " +
                              std::to_string(number_) + " after " + Counted(game_->ticks(), "tick");
  journal_(verdict);
  players_.SayToAll(purse_ > 0 ? sentences::kPurseWon : sentences::kGameWon, verdict, purse_);
  phase_ = Phase::Resting;
  deadline_ = now_ + kRest;
  for (const Contender& contender : game_->contenders()) {
    players_.Send(*contender.account, Message<ServerMessage::GamePause>(Seconds(kRest)));
    if (Player* player = players_.Find(contender.name())) {
      player->is_ready = tournament_.IsGameSet() && IsMeantForNextGame(*player);
    }
  }
  game_.reset();
}

void Arena::Clear() {
  phase_ = Phase::Gathering;
  deadline_.reset();
  players_.SendToAll(is_for_teams_ ? Message<ServerMessage::TournamentBoardCleared>()
                                   : Message<ServerMessage::BoardCleared>());
  GatherIfEnough();
  players_.SayToAll(tournament_.IsGameSet() ? sentences::kNextGameIsForTeams
                                            : sentences::kNextGameIsOpen);
}

void Arena::Remove(Contender& contender, const Sentence& departure, bool may_return) {
  const std::string name = contender.name();
  game_->Leave(contender, may_return);
  Comment(departure, {name});
  const std::vector<Contender*> side = game_->WinnersWith(game_->contenders().front());
  if (side.size() == game_->contenders().size()) {
    End(side, nullptr);
  }
}

void Arena::Comment(const Sentence& sentence, const std::vector<std::string>& values,
                    const Contender* except) {
  const std::string line = LineOf(sentence, values);
  for (const Contender& contender : game_->contenders()) {
    if (&contender != except) {
      players_.Send(*contender.account, line);
    }
  }
}

/// Game time in real time; at least 1.
std::int64_t Arena::Seconds(milliseconds time) const {
  const double seconds = std::chrono::duration<double>(time).count() / pace_;
  return std::max<std::int64_t>(1, static_cast<std::int64_t>(std::ceil(seconds)));
}

std::string Arena::Clock() const {
  return Message<ServerMessage::GameClock>(Seconds(*deadline_ - now_));
}

std::string Arena::TimeLeft() const {
  if (!deadline_) {
    return {};
  }
  const milliseconds more = phase_ == Phase::Resting ? kGathering : milliseconds(0);
  return Counted(Seconds(*deadline_ - now_ + more), "second");
}

}  // namespace korvanta::practice

/// The games of one run, one after another: players gather, play, and rest while the winner is
/// cheered. It seats players and lets the game's time pass; moves.h carries out what they do.
#pragma once

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "practice/game/game.h"
#include "practice/players/players.h"
#include "practice/tournament/tournament.h"

namespace korvanta::practice {

class Arena {
 public:
  enum class Phase { Gathering, Playing, Resting };

  /// All must outlive the arena. `pace` is how many times faster than real time the game runs.
  Arena(Players& players, Tournament& tournament, Dice& dice, double pace, Journal journal);

  /// The game's time goes on; it never falls.
  void Step(std::chrono::milliseconds now);

  /// Enters the game in progress, or waits for the next one.
  void Enter(Player& player);
  void Leave(Player& player);
  /// Begins the next game now, if there are enough players for it.
  void Start(const Player& player);

  /// The player has just logged in: gets back the place that was lost with the connection, or an
  /// empty board.
  void Welcome(Player& player);
  /// The account's player has logged out; its place is kept while the game lasts.
  void Forget(const Account& account);

  /// The contender has the Golden Knowledge.
  void Win(const Contender& finder) { End(game_->WinnersWith(finder), &finder); }

  Phase phase() const { return phase_; }
  /// Of this run, from 1.
  int number() const { return number_; }
  /// The game that is being played; null while none is.
  Game* game() { return game_ ? &*game_ : nullptr; }
  /// The account's place in it; null without one.
  Contender* SeatOf(const Account& account) { return game_ ? game_->Find(account) : nullptr; }

  /// In words and real time: until the next tick, or until the next game at the earliest. Empty
  /// while too few have gathered.
  std::string TimeLeft() const;

  /// A line about the game to everyone in it, but not to `except`.
  void Comment(const Sentence& sentence, const std::vector<std::string>& values,
               const Contender* except = nullptr);

 private:
  void SendStart(const Player& player, const Contender& contender);
  /// `departure` is what the others read.
  void Remove(Contender& contender, const Sentence& departure, bool may_return);
  bool IsMeantForNextGame(const Player& player) const;
  bool EnoughAreReady() const;
  void GatherIfEnough();
  std::vector<Player*> Entrants();
  void Begin();
  void Tick();
  void End(const std::vector<Contender*>& winners, const Contender* finder);
  void Clear();
  std::int64_t Seconds(std::chrono::milliseconds time) const;
  std::string Clock() const;

  Players& players_;
  Tournament& tournament_;
  Dice& dice_;
  double pace_;
  Journal journal_;
  Phase phase_ = Phase::Gathering;
  std::optional<Game> game_;       // while it is being played
  std::set<const Account*> left_;  // of their own will, so that they stay out of this game
  bool is_for_teams_ = false;
  std::int64_t purse_ = 0;
  int number_ = 0;
  std::chrono::milliseconds now_{0};
  /// When the phase, or in a game the tick, is over; nothing while too few have gathered.
  std::optional<std::chrono::milliseconds> deadline_;
};

}  // namespace korvanta::practice

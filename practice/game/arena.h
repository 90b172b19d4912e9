/// The games of one run, one after another: players gather, play, and rest while the winner is
/// cheered. The lobby hands it the moves that players ask for; it answers them all.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "practice/game/game.h"
#include "practice/players/players.h"
#include "practice/tournament/tournament.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {

class Arena {
 public:
  // In the time of the game, which a pace makes faster or slower than real time.
  static constexpr std::chrono::seconds kTick{15};
  static constexpr std::chrono::seconds kGathering{15};
  static constexpr std::chrono::seconds kRest{20};

  enum class Phase { Gathering, Playing, Resting };

  using Journal = std::function<void(std::string_view line)>;

  /// All must outlive the arena. `pace` is how many times faster than real time the game runs;
  /// `journal` hears one line about each game that begins and ends.
  Arena(Players& players, Tournament& tournament, std::mt19937_64& dice, double pace,
        Journal journal);

  /// The game's time goes on; it never falls.
  void Step(std::chrono::milliseconds now);

  /// What players ask for.
  void Enter(Player& player);
  void Leave(Player& player);
  void Research(Player& player, std::string_view topic, std::string_view level);
  void Attack(Player& player, std::string_view name);
  void Ally(Player& player, std::string_view name);
  void BreakAlliance(Player& player);
  void Explain(Player& player, std::string_view topic);
  void Describe(Player& player);

  /// Begins the next game now, if there are enough for it.
  void Hurry(Player& player);

  /// The account's player has logged out.
  void Forget(const Account& account);

  Phase phase() const { return phase_; }
  /// The game that is being played; null while none is.
  const Game* game() const { return phase_ == Phase::Playing ? &*game_ : nullptr; }
  /// The player's place in it; null without one.
  const Contender* ContenderOf(const Player& player) const;

 private:
  /// Null when the player has no place in the game.
  Contender* Seat(const Player& player);
  /// The same, and told to the player.
  Contender* SeatOrRefuse(Player& player);
  /// Another player of the game by name; null, and told to the player, when there is none.
  Contender* Opponent(Player& player, const Contender& self, std::string_view name);
  /// The end of lost_ when the player has lost none.
  std::list<Contender>::iterator LostSeatOf(const Player& player);
  const Contender& TakeSeat(Player& player, std::string_view team);
  void RemoveFromGame(const Contender& contender, std::string_view what_it_did);
  bool IsMeantForNextGame(const Player& player) const;

  bool EnoughAreReady() const;
  void GatherIfEnough();
  void Begin();
  void Tick();
  void End(const std::vector<Contender*>& winners, const Contender* finder);
  void Clear();

  void Tell(const Contender& contender, std::string_view messages);
  /// A line to everyone in the game about what happens in it.
  void Comment(std::string_view words);
  std::int64_t Seconds(std::chrono::milliseconds time) const;
  std::int64_t SecondsLeft() const;
  std::string TimeLeft() const;
  std::string Clock() const;
  std::string Points(const Contender& contender) const;

  Players& players_;
  Tournament& tournament_;
  std::mt19937_64& dice_;
  double pace_;
  Journal journal_;
  Phase phase_ = Phase::Gathering;
  std::optional<Game> game_;
  std::set<const Account*> left_;  // of their own will, so that they stay out of this game
  std::list<Contender> lost_;      // may come back to their seats
  bool is_for_teams_ = false;
  std::int64_t purse_ = 0;
  int games_ = 0;
  std::chrono::milliseconds now_{0};
  /// When the phase, or in a game the tick, is over; nothing while too few have gathered.
  std::optional<std::chrono::milliseconds> due_;
};

}  // namespace korvanta::practice

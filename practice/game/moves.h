/// What players do in the game, and what they and the others are told of it.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "practice/game/arena.h"
#include "practice/players/players.h"

namespace korvanta::practice {

/// Whoever asks is answered, if only by the reason why nothing was done. Topics and levels are
/// codes as they stand in the message.
class Moves {
 public:
  /// Both must outlive this.
  Moves(Players& players, Arena& arena) : players_(players), arena_(arena) {}

  void Research(const Player& player, std::string_view topic_code, std::string_view level_code);
  void Attack(const Player& player, std::string_view name);
  void Ally(const Player& player, std::string_view name);
  void BreakAlliance(const Player& player);
  /// What a topic is good for, and what it costs the player.
  void Explain(const Player& player, std::string_view topic_code);
  /// How the game stands.
  void Describe(const Player& player);

 private:
  /// Null, and refused, when the player has no place in the game.
  Contender* Seat(const Player& player);
  /// The player's side of a move and the other's; null, and refused, when there is no such
  /// opponent.
  std::pair<Contender*, Contender*> Opponents(const Player& player, std::string_view name);
  std::string PointsOf(const Contender& contender);

  Players& players_;
  Arena& arena_;
};

}  // namespace korvanta::practice

/// Everything that one run of the server consists of, except its connections and simulated players.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string_view>

#include "practice/game/arena.h"

namespace korvanta::practice {

struct World {
  /// The transport must outlive the world; the others are as for Arena.
  World(Transport& transport, std::uint64_t seed, double pace, const Journal& journal)
      : players(transport), dice(seed), arena(players, tournament, dice, pace, journal) {}

  Players players;
  Accounts accounts;
  Dice dice;
  Tournament tournament{players, accounts};
  Arena arena;
  /// Called with what is said to everyone, or to one player; `listener` is null for everyone.
  std::function<void(const Player& speaker, const Player* listener, std::string_view words)>
      on_chat = [](const Player&, const Player*, std::string_view) {};
  std::chrono::milliseconds now{0};  ///< counted from the start of the server; never falls
};

}  // namespace korvanta::practice

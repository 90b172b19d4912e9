/// The simulated players: they come and go, talk, and play by their temperaments. They send the
/// lobby the same requests as people, so they can do nothing that people cannot.
#pragma once

#include <chrono>
#include <string_view>
#include <vector>

#include "practice/lobby/lobby.h"
#include "practice/simulation/conversation.h"

namespace korvanta::practice {

class Simulation {
 public:
  /// All must outlive the simulation. It rolls dice of its own, so that what it does stays the same
  /// when people roll theirs.
  Simulation(Accounts& accounts, Lobby& lobby, Arena& arena, Tournament& tournament,
             std::uint64_t seed, int count);

  /// The game's time goes on; it never falls.
  void Step(std::chrono::milliseconds now);

  /// Someone has said something to everyone, or to `listener` alone.
  void Hear(const Player& speaker, const Player* listener, std::string_view words) {
    conversation_.Hear(speaker, listener, words);
  }

 private:
  void ComeOrGo();
  void FormTeam();
  void Act(Character& character);
  bool IsInTeam(const Character& character) const;
  /// Whether it is time; then the next time is set to `least` to `most` from now.
  bool IsDue(std::chrono::milliseconds& next, std::chrono::milliseconds least,
             std::chrono::milliseconds most);

  Lobby& lobby_;
  Arena& arena_;
  Tournament& tournament_;
  Dice dice_;
  std::vector<Character> characters_;
  Conversation conversation_{characters_, arena_, dice_};
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds next_arrival_{30'000};
  std::chrono::milliseconds next_team_{0};
};

}  // namespace korvanta::practice

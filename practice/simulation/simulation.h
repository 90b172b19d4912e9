/// The simulated players: they come and go, talk, and play by their temperaments. They send the
/// lobby the same requests as people, so they can do nothing that people cannot.
#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "practice/lobby/lobby.h"
#include "practice/simulation/simulated_talk.h"

namespace korvanta::practice {

class Simulation {
 public:
  /// Both must outlive the simulation. It rolls dice of its own, so that what it does stays the
  /// same when people roll theirs.
  Simulation(World& world, Lobby& lobby, std::uint64_t seed, int count);

  /// The game's time goes on; it never falls.
  void Step(std::chrono::milliseconds now);

 private:
  struct Character {
    Account* account;
    std::size_t number;        // chooses its temperament
    Player* player = nullptr;  // null while it is offline
    std::chrono::milliseconds next_move{0};
  };
  struct Line {
    std::chrono::milliseconds due;
    Character* speaker;
    std::string typed;
  };

  void ComeOrGo();
  void FormTeam();
  void Act(Character& character);
  void MakeSmallTalk();
  /// Answers a person, who has spoken to everyone or to `listener` alone.
  void Hear(const Player& speaker, const Player* listener, std::string_view words);
  /// Types a line for the occasion behind the command, with the name in place of "%". False when
  /// all of them have been said lately.
  bool Say(Character& speaker, Occasion occasion, std::string_view name,
           const std::string& command = "/c ");
  /// One of them always is, unless there are none at all.
  Character& AnyOnline();
  /// Whether it is time; then the next time is set to `least` to `most` from now.
  bool IsDue(std::chrono::milliseconds& next, std::chrono::milliseconds least,
             std::chrono::milliseconds most);

  World& world_;
  Lobby& lobby_;
  Dice dice_;
  std::vector<Character> characters_;
  std::vector<Line> waiting_;
  std::deque<std::string_view> said_lately_;
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds next_talk_{5'000};
  std::chrono::milliseconds next_arrival_{30'000};
  std::chrono::milliseconds next_team_{0};
};

}  // namespace korvanta::practice

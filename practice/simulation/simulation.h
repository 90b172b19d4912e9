/// The simulated players: they come and go, talk, and play by their temperaments. They ask for
/// their moves on the same road as people do, so they can do nothing that people cannot.
#pragma once

#include <chrono>
#include <deque>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "practice/game/arena.h"
#include "practice/lobby/lobby.h"
#include "practice/players/accounts.h"
#include "practice/players/players.h"
#include "practice/simulation/simulated_talk.h"
#include "practice/tournament/tournament.h"

namespace korvanta::practice {

/// How a simulated player plays. Chances are in percent at each of its moves.
struct Temperament {
  std::string_view name;
  Topic first_topic;  ///< the two that it brings to level 4
  Topic second_topic;
  int defense;  ///< level of Defense that it wants before the second topic; so with Military
  int military;
  int attacks;  ///< chance of an attack on someone who is not about to win
  int allies;   ///< chance of offering an alliance, and of agreeing to one
  int betrays;  ///< chance of attacking an ally that is about to win
};

class Simulation {
 public:
  /// All must outlive the simulation. Throws dice of its own, so that people's dice do not change
  /// what it does.
  Simulation(Accounts& accounts, Players& players, Lobby& lobby, Arena& arena,
             Tournament& tournament, std::uint64_t seed, int count);

  /// The game's time goes on; it never falls.
  void Step(std::chrono::milliseconds now);

  /// Someone has said something to everyone, or told it to `listener` alone.
  void Hear(const Player& speaker, const Player* listener, std::string_view words);

 private:
  struct Character {
    Account* account;
    const Temperament* temperament;
    Player* player = nullptr;  // null while it is not online
    std::chrono::milliseconds next_move{0};
  };
  /// A line that is typed a little later.
  struct Reply {
    std::chrono::milliseconds due;
    Account* speaker;
    std::string line;
  };

  void ComeOrGo();
  void Talk();
  void SendReplies();
  void FormTeam();

  void Move(Character& self);
  void Play(Character& self, const Contender& seat);
  bool Attack(Character& self, const Contender& seat, const Contender* danger);
  bool MakeFriends(Character& self, const Contender& seat);
  void Research(Character& self, const Contender& seat);
  void DoResearch(Character& self, const Contender& seat, Topic topic);

  void Type(Player& player, const std::string& line);
  /// One of them that has not been said lately, with the name in the place of its "%". Empty when
  /// all have been, or when the line wants a name and there is none.
  std::string Line(Occasion occasion, std::string_view name);
  Character* AnyOnline();
  std::size_t Below(std::size_t limit);
  bool Chance(int percent);
  std::chrono::milliseconds Soon(std::chrono::milliseconds least, std::chrono::milliseconds most);

  Accounts& accounts_;
  Players& players_;
  Lobby& lobby_;
  Arena& arena_;
  Tournament& tournament_;
  std::mt19937_64 dice_;
  std::vector<Character> characters_;
  std::vector<Reply> replies_;
  std::deque<std::string_view> said_;  // lately
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds next_coming_{30'000};
  std::chrono::milliseconds next_talk_{5'000};
  std::chrono::milliseconds next_team_{0};
};

}  // namespace korvanta::practice

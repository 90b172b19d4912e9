/// What the simulated players say: talk of their own, and answers to people.
#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/dice.h"
#include "practice/game/arena.h"
#include "practice/players/players.h"
#include "practice/simulation/simulated_play.h"
#include "practice/simulation/simulated_talk.h"

namespace korvanta::practice {

/// A simulated player, in whom an account and a temperament meet.
struct Character {
  Account* account;
  const Temperament* temperament;
  Player* player = nullptr;  ///< null while it is offline
  std::chrono::milliseconds next_move{0};
};

/// Any that is online; null when none is.
Character* AnyOnline(std::vector<Character>& characters, Dice& dice);

class Conversation {
 public:
  struct Line {
    std::chrono::milliseconds due;
    Character* speaker;
    std::string typed;
  };

  /// All must outlive the conversation.
  Conversation(std::vector<Character>& characters, Arena& arena, Dice& dice)
      : characters_(characters), arena_(arena), dice_(dice) {}

  /// The lines that are typed by now; their speakers are online.
  std::vector<Line> Step(std::chrono::milliseconds now);

  /// A player has said something to everyone, or to `listener` alone.
  void Hear(const Player& speaker, const Player* listener, std::string_view words);

  /// The speaker has something to say about it; "%" in it will be the name.
  void Say(Character& speaker, Occasion occasion, std::string_view name = {});

 private:
  void MakeSmallTalk(Character& speaker);
  /// One of the lines for it that has not been said lately, with the name in its place; empty when
  /// there is none.
  std::string Pick(Occasion occasion, std::string_view name);

  std::vector<Character>& characters_;
  Arena& arena_;
  Dice& dice_;
  std::vector<Line> waiting_;
  std::deque<std::string_view> said_lately_;
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds next_talk_{5'000};
};

}  // namespace korvanta::practice

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
  /// All must outlive the conversation.
  Conversation(std::vector<Character>& characters, const Arena& arena, Dice& dice)
      : characters_(characters), arena_(arena), dice_(dice) {}

  struct TypedLine {
    Character* speaker;
    std::string line;
  };

  /// The lines that are typed by now; their speakers are online.
  std::vector<TypedLine> Step(std::chrono::milliseconds now);

  /// A person has said something to everyone, or to `listener` alone.
  void Hear(const Player& speaker, const Player* listener, std::string_view words);

  /// One of the lines for it that has not been said lately, as it is typed, with the name in the
  /// place of its "%". Empty when all have been said, or when the line wants a name and there is
  /// none.
  std::string LineFor(Occasion occasion, std::string_view name);

 private:
  struct Reply {
    std::chrono::milliseconds due;
    TypedLine typed;
  };

  void Answer(Character& character, const Player& speaker, Occasion occasion, bool is_private);
  TypedLine SmallTalk();

  std::vector<Character>& characters_;
  const Arena& arena_;
  Dice& dice_;
  std::vector<Reply> replies_;
  std::deque<std::string_view> said_lately_;
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds next_talk_{5'000};
};

}  // namespace korvanta::practice

/// How a simulated player plays: what it does next in a game, by its temperament.
#pragma once

#include <cstddef>
#include <optional>

#include "practice/base/dice.h"
#include "practice/game/game.h"
#include "practice/wire/client_requests.h"

namespace korvanta::practice {

/// Chances are in percent at each of its moves.
struct Temperament {
  TopicCode first_topic;  ///< the two that it brings to level 4
  TopicCode second_topic;
  int defense;   ///< level of Defense that it wants before the second topic
  int military;  ///< likewise
  int attacks;   ///< chance of an attack on someone who is not about to win
  int allies;    ///< chance of offering an alliance, and of agreeing to one
  int betrays;   ///< chance of attacking an ally that is about to win
};

/// One of a few, which take turns.
const Temperament& TemperamentOf(std::size_t number);

/// All levels of the contender together.
int Progress(const Contender& contender);

/// The next move of the contender, as its client would ask for it; nothing when it waits.
std::optional<ClientRequest> NextMove(const Game& game, const Contender& self,
                                      const Temperament& temperament, Dice& dice);

}  // namespace korvanta::practice

/// How a simulated player plays: what it does next in a game, by its temperament.
#pragma once

#include <cstddef>
#include <optional>

#include "practice/base/dice.h"
#include "practice/game/game.h"
#include "practice/wire/client_requests.h"

namespace korvanta::practice {

/// The next move of the contender, as its client would ask for it; nothing when it waits. The
/// player's number chooses one of a few temperaments.
std::optional<ClientRequest> NextMove(const Game& game, const Contender& self, std::size_t number,
                                      Dice& dice);

}  // namespace korvanta::practice

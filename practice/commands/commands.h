/// The lines that players type: each is a command, of which "c" is talk.
#pragma once

#include <string_view>

#include "practice/game/world.h"

namespace korvanta::practice {

/// Carries out what the player has typed. Every line is answered, if only by the reason why nothing
/// was done.
void RunCommand(World& world, Player& player, std::string_view line);

}  // namespace korvanta::practice

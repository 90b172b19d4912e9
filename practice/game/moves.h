/// What players do in the game, and what they and the others are told of it. Whoever asks is
/// answered, if only by the reason why nothing was done. Topics and levels are codes as they stand
/// in the message.
#pragma once

#include <string_view>

#include "practice/game/world.h"

namespace korvanta::practice {

void Research(World& world, const Player& player, std::string_view topic_code,
              std::string_view level_code);
void Attack(World& world, const Player& player, std::string_view name);
void Ally(World& world, const Player& player, std::string_view name);
void BreakAlliance(World& world, const Player& player);
/// What a topic is good for, and what it costs the player.
void ExplainTopic(World& world, const Player& player, std::string_view topic_code);
/// How the game stands.
void DescribeGame(World& world, const Player& player);

}  // namespace korvanta::practice

/// The lines that players type: each is a command, of which "c" is talk.
#pragma once

#include <chrono>
#include <functional>
#include <string_view>

#include "practice/base/dice.h"
#include "practice/game/moves.h"
#include "practice/players/players.h"
#include "practice/tournament/tournament.h"

namespace korvanta::practice {

/// Called with what is said to everyone, or to one player; `listener` is null for everyone.
using ChatListener =
    std::function<void(const Player& speaker, const Player* listener, std::string_view words)>;

/// What commands work with; all must outlive them.
struct CommandContext {
  Players& players;
  const Accounts& accounts;
  TournamentDesk& tournament_desk;
  Arena& arena;
  Moves& moves;
  Dice& dice;
  ChatListener on_chat = [](const Player&, const Player*, std::string_view) {};
  std::chrono::milliseconds now{0};  ///< from the start of the server
};

/// Carries out what the player has typed. Every line is answered, if only by the reason why nothing
/// was done.
void RunCommand(const CommandContext& context, Player& player, std::string_view line);

}  // namespace korvanta::practice

/// The news that the server keeps for its players: an introduction to the game.
#pragma once

#include <string_view>

namespace korvanta::practice {

/// Lines end with "\r\n"; there are no control characters else.
inline constexpr std::string_view kNewsText =
    "Welcome to Korvanta on the practice server!\r\n"
    "\r\n"
    "THE GAME\r\n"
    "Players race to research four topics: Military, Industry, Population and Defense, four levels "
    "each. Whoever has brought any two of them to level 4 may research the Golden Knowledge, and "
    "wins with it. On the way players attack one another to set each other back, and form "
    "alliances.\r\n"
    "\r\n"
    "WHAT IS OPEN NOW\r\n"
    "The lobby is open; no games are played yet. Choose \"Enter Game\" (Ctrl+E) to be marked as "
    "ready in the online list.\r\n"
    "\r\n"
    "THE LOBBY\r\n"
    "Type a line and press Enter to talk to everyone. Lines that begin with a slash are commands: "
    "/help lists them all.\r\n"
    "Names in the online list: dark yellow is an administrator, green a member of a team, blue "
    "anyone else, grey someone who is away. A mark shows who is ready to play.\r\n"
    "\r\n"
    "YOUR ACCOUNT\r\n"
    "A name belongs to the first password it was used with. Accounts and figures last until the "
    "server is stopped.";

}  // namespace korvanta::practice

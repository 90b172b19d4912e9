/// The news of the server: an introduction to the game.
#pragma once

#include <string_view>

namespace korvanta::practice {

/// Lines end with "\r\n"; there are no other control characters.
inline constexpr std::string_view kNewsText =
    "Welcome to Korvanta on the practice server!\r\n"
    "\r\n"
    "THE GAME\r\n"
    "Research any two of Military, Industry, Population and Defense to level 4, then the Golden "
    "Knowledge: whoever has it first wins. A game takes 5 to 10 minutes.\r\n"
    "\r\n"
    "HOW TO PLAY\r\n"
    "Choose \"Enter Game\" (Ctrl+E), even while a game is on. Each tick of the clock brings "
    "research points. Right-click a box of the board: \"Research This\" buys the level, "
    "\"Information\" says what the topic is good for and what its next level costs you. Levels are "
    "researched one by one.\r\n"
    "\r\n"
    "WHAT THE TOPICS DO\r\n"
    "Military: level 1 lets you attack, and each level makes your attacks harder to block.\r\n"
    "Industry: one more research point with every tick for each level.\r\n"
    "Population: all research a tenth cheaper for each level.\r\n"
    "Defense: each level blocks more of the attacks on you.\r\n"
    "\r\n"
    "ATTACKS AND ALLIANCES\r\n"
    "Right-click a player in the online list. An attack costs 3 points and destroys one level of a "
    "topic of a player who does not block it; you can attack once a tick, and be hit once a tick. "
    "When you and another player form an alliance, you win together. Whoever attacks an ally is "
    "never blocked and never forgotten.\r\n"
    "\r\n"
    "THE LOBBY\r\n"
    "Type a line and press Enter to talk to everyone. Lines that begin with a slash are commands: "
    "/game shows how the game stands, /help lists them all. Ctrl+K holds the lines still while you "
    "read.\r\n"
    "Names in the online list: red needs only the Golden Knowledge, purple has an ally, turquoise "
    "plays alone; outside the game dark yellow is an administrator, grey someone who is away, "
    "green "
    "a member of a team, blue a person, orange a simulated player. A mark shows who plays, or is "
    "ready to.\r\n"
    "\r\n"
    "TOURNAMENTS\r\n"
    "An administrator opens one in the tournament window (Ctrl+T), where players create and join "
    "teams. In the tournament game each player pays the entry fee from the total score, teams play "
    "against teams, and the winners share what all have paid.\r\n"
    "\r\n"
    "YOUR ACCOUNT\r\n"
    "A name belongs to the first password it was used with. Accounts and figures last until the "
    "server is stopped.";

}  // namespace korvanta::practice

/// The sentences of the server's own that players read, and how values get into them. Every rule
/// says why it refuses a request by a Refusal; whoever talks to the player turns it into words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "practice/wire/server_messages.h"

namespace korvanta::practice {

enum class Refusal : std::uint8_t {
#define REFUSAL(name, text) name,
#include "practice/words/refusals.h"
#undef REFUSAL
};

struct Sentence {
  MessageKind kind;
  std::string_view speaker;  ///< in front of the text, with the colon behind it
  std::string_view text;     ///< with "%1" to "%9" where its values belong
};

namespace sentences {

constexpr Sentence Admin(std::string_view text) { return {MessageKind::Admin, "Server: ", text}; }
constexpr Sentence Answer(std::string_view text) { return {MessageKind::Status, "", text}; }
constexpr Sentence Announcement(std::string_view text) {
  return {MessageKind::Announcement, "Korvanta: ", text};
}
constexpr Sentence Comment(std::string_view text) { return {MessageKind::Plain, "*: ", text}; }
/// To the one player whom it concerns, in a colour that stands out from the comments.
constexpr Sentence Alert(std::string_view text) { return {MessageKind::Tell, "", text}; }

// Around the login.
constexpr Sentence kWelcome = Announcement(
    "Welcome, %1! Choose \"Enter Game\" (Ctrl+E) to play; right-click a box of the board to "
    "research it.");
constexpr Sentence kFirstSteps = Announcement(
    "Type a line and press Enter to talk. /help lists the commands, /news explains the game; "
    "Ctrl+K holds the lines still while you read.");
constexpr Sentence kAdministratorWelcome = Admin(
    "You are the administrator of this server: /announce speaks to everyone, and the tournament "
    "window (Ctrl+T) has an Admin page for you.");
constexpr Sentence kFarewell = Announcement("The server is shutting down. Goodbye!");

// Gathering for a game.
constexpr Sentence kReady = Answer("You are ready for the next game%1");
constexpr Sentence kReadyAlready = Answer("You are already ready for the next game%1");
constexpr std::string_view kWhenThisIsOver = "; one is being played now.";
constexpr std::string_view kWhenClockRuns = ", which begins in %1.";
constexpr std::string_view kWhenAnotherIsReady = "; it begins when another player is ready.";
constexpr Sentence kReadyNoLonger = Answer("You will not take part in the next game.");
constexpr Sentence kTooFewTeams =
    Announcement("Too few teams are ready for the tournament game; an open game is played first.");
constexpr Sentence kTooFewPlayers = Announcement("Too few players are ready for a game.");
constexpr Sentence kNextGameIsOpen =
    Announcement("The next game is open: choose \"Enter Game\" (Ctrl+E) to take part.");
constexpr Sentence kNextGameIsForTeams = Announcement(
    "The next game is the tournament game. Members of teams, choose \"Enter Game\" (Ctrl+E)!");

// The game.
constexpr Sentence kGameBegins = Announcement("%1 begins: %2. Research, attack, ally!");
constexpr Sentence kTeamGameBegins = Announcement("%1 begins: %2. Your team wins together!");
constexpr Sentence kEnterGame = Answer("You enter the game in progress, with %1 to catch up.");
constexpr Sentence kSeatAgain = Answer("Your place in the game has been kept: %1.");
constexpr Sentence kLeaveGame = Answer("You have left the game.");
constexpr Sentence kEnters = Comment("%1 enters the game");
constexpr Sentence kReturns = Comment("%1 is back in the game");
constexpr Sentence kLeaves = Comment("%1 leaves the game");
constexpr Sentence kDisappears = Comment("%1 is gone from the game");
constexpr Sentence kNearlyWins = Announcement("%1 needs only the Golden Knowledge now!");
constexpr Sentence kGoldenKnowledge = Announcement("%1 has researched the Golden Knowledge!");
constexpr Sentence kGameWon = Announcement("%1!");
constexpr Sentence kPurseWon = Announcement("%1 and the purse of %2!");
constexpr Sentence kBetrays = Comment("%1 betrays %2!");
constexpr Sentence kBlocks = Comment("%2 blocks an attack by %1");
constexpr Sentence kAttacks = Comment("%1 attacks %2, whose %3 falls to level %4");
constexpr Sentence kYouBlock = Alert("Attack on you: you block %1.");
constexpr Sentence kYouAreHit =
    Alert("Attack on you: %1 destroys a level of your research. %3 falls to level %4.");
constexpr Sentence kOffersAlliance =
    Answer("You offer %1 an alliance. It is formed when %1 offers you one, too.");
constexpr Sentence kAllianceOffered =
    Answer("%1 offers you an alliance. To agree, right-click %1 and choose \"Form Alliance\".");
constexpr Sentence kAllied = Comment("%1 and %2 are allies now");
constexpr Sentence kAlliedNoLonger = Comment("%1 and %2 are no longer allies");
constexpr Sentence kTopic = Answer("%1: %2 %3%4");
constexpr std::string_view kGoldenCost = "It costs %2.";
constexpr std::string_view kLastLevel = "You have reached its last level.";
constexpr std::string_view kNextLevel = "Level %1 costs %2.";
constexpr std::string_view kPoints = "You have %1 and get %2 with each tick.";
constexpr Sentence kStanding = Answer("Game %1, tick %2; the next in %3.");
constexpr Sentence kNextGameIn = Answer("The next game begins in %1 at the earliest.");
constexpr Sentence kNextGameNeedsTwo = Answer("The next game begins when two players are ready.");

// Lines and commands.
constexpr Sentence kHelp =
    Answer("Press Ctrl+K to hold these lines still. Commands, each typed with a slash in front:");
/// Before and after more lines than the view shows at once.
constexpr Sentence kHoldView = Answer("Press Ctrl+K to hold these lines still.");
constexpr Sentence kListenerAway = Answer("%1 is away and may not see it at once.");
constexpr Sentence kActs = Comment("%1 %2");
constexpr Sentence kRolls = Comment("%1 rolls %2 of %3");
constexpr Sentence kAway = Answer("You are away. Type /away again when you are back.");
constexpr Sentence kAwayAndOut =
    Answer("You are away, and out of the next game. Type /away again when you are back.");
constexpr Sentence kBack = Answer("You are back.");
constexpr Sentence kFigures = Answer(
    "%1: level %2, total score %3, %4 of %5 games won. Statistics Lookup "
    "(Ctrl+L) shows the rest.");
constexpr Sentence kBest = Answer("The highest total scores since the server was started:");
constexpr Sentence kTime = Answer("The server has been running for %1; you have been here for %2.");

// Teams and tournaments.
constexpr Sentence kTeamMade = Answer(
    "You lead the new team. Others join it with its name and password; /team speaks to its members "
    "alone.");
constexpr std::string_view kJoined = "has joined the team";
constexpr std::string_view kDisbanded = "has disbanded the team";
constexpr std::string_view kLeft = "has left the team";
constexpr std::string_view kKicked = "has kicked %1";
constexpr std::string_view kTeamStays = "the tournament is over; your team stays together";
constexpr Sentence kTournamentOpens = Announcement(
    "A tournament is open for %1 teams and %2 players, entry fee %3. Create or join "
    "a team in the tournament window (Ctrl+T)!");
constexpr Sentence kTournamentGameSet =
    Announcement("The next game will be the tournament game; only members of teams take part.");
constexpr Sentence kSetForNextGame = Answer(
    "The tournament game is the next one: the game in progress, if there is one, is played to its "
    "end first.");
constexpr Sentence kTournamentOver = Announcement("The tournament is over.");

}  // namespace sentences

/// The text with its values in their places.
inline std::string Filled(std::string_view text, const std::vector<std::string>& values) {
  std::string filled;
  for (std::size_t place = 0; (place = text.find('%')) != std::string_view::npos;) {
    filled += text.substr(0, place);
    filled += values.at(static_cast<std::size_t>(text.at(place + 1) - '1'));
    text.remove_prefix(place + 2);
  }
  return filled.append(text);
}

/// "1 point", "2 points".
inline std::string Counted(std::int64_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

/// A whole message: the sentence as a line of its kind.
inline std::string LineOf(const Sentence& sentence, const std::vector<std::string>& values = {}) {
  return ChatLine(sentence.kind, std::string(sentence.speaker) + Filled(sentence.text, values));
}

/// What the player is told who asked for it.
inline Sentence SentenceFor(Refusal refusal) {
  static constexpr std::string_view kTexts[] = {
#define REFUSAL(name, text) std::string_view(text),
#include "practice/words/refusals.h"
#undef REFUSAL
  };
  return sentences::Admin(kTexts[static_cast<std::size_t>(refusal)]);
}
}  // namespace korvanta::practice

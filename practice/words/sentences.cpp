#include "practice/words/sentences.h"

#include <algorithm>
#include <array>

#include "practice/wire/server_messages.h"

namespace korvanta::practice {

namespace {

struct Row {
  Refusal refusal;
  std::string_view text;
};

constexpr auto kRefusals = [] {
  using enum Refusal;
  return std::to_array<Row>({
      {None, ""},
      {BadUserName, "A user name has 4 to 20 characters, and only letters and digits."},
      {BadPassword, "A password has 1 to 64 characters."},
      {WrongPassword,
       "Wrong password. A name belongs to the first password it was used with since the server was "
       "started."},
      {NoRoomForAccount, "This server has no room for another name."},
      {LoggedInElsewhere, "%1 is logged in already."},
      {LoggedInAlready, "You are logged in already."},
      {IncompleteLogin, "Your client's login lacks its version, name or password."},
      {LoginTooLate, "You did not log in within 30 seconds."},
      {MessageTooLong, "Your client sent a message that is far too long."},
      {UnknownMessage, "Your client sent something that this server does not know."},
      {IncompleteMessage, "That request lacks a part and was not understood."},
      {LineTooLong, "A line has at most %1 characters; yours was longer, and nobody has seen it."},
      {NoCommand, "There is no command in that line. Type /help for the commands."},
      {UnknownCommand,
       "There is no command \"%1\". Type /help for the commands; to talk while Auto Chat is off, "
       "begin the line with the letter c and a space."},
      {CommandNeedsMore, "/%1 needs more: type /%1 %2."},
      {AdministratorsOnly, "Only an administrator may use /%1."},
      {NoOneToReplyTo, "Nobody has spoken to you alone yet."},
      {NoOneOnline, "Nobody named \"%1\" is online. Type /who to see who is."},
      {TellingYourself, "You cannot speak to yourself."},
      {UnknownPlayer, "Nobody named \"%1\" has been here since the server was started."},
      {BadDie, "A die has 2 to %1 sides, as in /roll 20."},
      {NoGameOn,
       "No game is being played right now. Choose \"Enter Game\" (Ctrl+E) for the next one."},
      {NotInGame, "You are not in the game. Choose \"Enter Game\" (Ctrl+E)."},
      {InGameAlready, "You are in the game already."},
      {NotWaiting, "You are not in a game, nor waiting for one."},
      {GameIsOn, "A game is being played."},
      {TooFewPlayers, "A game needs two players who are ready."},
      {NotInTournamentGame,
       "The game that begins now is for members of teams who can pay the entry fee."},
      {NoSuchTopic, "There is no such topic."},
      {NoSuchLevel, "There is no such topic or level."},
      {GoldenKnowledgeNeedsTopics, "The Golden Knowledge needs two topics at level 4 first."},
      {LevelReachedAlready, "You have reached %1 already."},
      {LevelOutOfOrder, "Levels are researched one by one: next is %2."},
      {ResearchTooDear, "%1 costs %3 and you have %4. You get %5 with each tick."},
      {AttackTooDear, "An attack costs %2 and you have %3."},
      {AttackNeedsMilitary, "You need at least Military level 1 to attack."},
      {AttackedAlready, "You have attacked already; wait for the next tick."},
      {SetBackAlready, "%1 has already been hit since the last tick; wait for the next one."},
      {NothingToDestroy, "%1 has researched nothing that you could destroy."},
      {Teammate, "%1 is on your team."},
      {OpponentOffline, "That player is not online."},
      {OpponentNotInGame, "%1 is not in the game."},
      {Yourself, "That is you."},
      {TeamIsAlliance, "In a tournament game your team is your alliance."},
      {AlliedAlready, "%1 is your ally already."},
      {HasAlly, "You are allied with %2; /break ends that."},
      {OpponentHasAlly, "%1 has another ally."},
      {NoAlly, "You have no ally."},
      {AdministratorsManage, "Only an administrator may manage tournaments."},
      {BadTerms,
       "A tournament needs an entry fee of 0 to 1000000, 2 to 1000 teams and 2 to 10000 players."},
      {FewerPlayersThanTeams,
       "%2 players cannot make up %1 teams; allow at least as many players as teams."},
      {TooManyTeamsAlready, "There are more teams, or players in teams, than that already."},
      {TournamentOpenAlready, "There is a tournament already; end it first."},
      {NoTournament, "There is no tournament."},
      {TooFewTeams, "A tournament game needs at least two teams."},
      {GameSetAlready, "The next game is the tournament game already."},
      {EntryFeeTooHigh, "The entry fee is %1 points of Total Score, and you have %2."},
      {BadTeamName, "A team's name has 1 to 20 characters and no colon."},
      {BadTeamPassword, "A team's password has 1 to 64 characters."},
      {WrongTeamPassword, "That team exists, and its password is a different one."},
      {InTeamAlready,
       "You are in the team %3. Leave it first: kick yourself in the list of teams."},
      {NoRoomForTeam, "There is no room for another team or player."},
      {NotInTeam, "You are not in a team. The tournament window lets you create or join one."},
      {OnlyLeaderDisbands,
       "Only %1, who leads the team, may disband it. To leave it, kick yourself in the list of "
       "teams."},
      {OnlyLeaderKicks, "Only %1, who leads the team, may kick others from it."},
      {NoTeamMember, "You can kick only members of your own team: choose the line of one."},
  });
}();

static_assert(std::all_of(kRefusals.begin(), kRefusals.end(),
                          [](const Row& row) {
                            return &row == &kRefusals[static_cast<std::size_t>(row.refusal)];
                          }) &&
              kRefusals.back().refusal == Refusal::NoTeamMember);

}  // namespace

std::string Filled(std::string_view text, const std::vector<std::string>& values) {
  std::string filled;
  for (std::size_t place = 0; (place = text.find('%')) != std::string_view::npos;) {
    filled += text.substr(0, place);
    filled += values.at(static_cast<std::size_t>(text.at(place + 1) - '1'));
    text.remove_prefix(place + 2);
  }
  return filled.append(text);
}

std::string Counted(std::int64_t count, std::string_view noun) {
  return std::to_string(count) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string LineOf(const Sentence& sentence, const std::vector<std::string>& values) {
  const std::string text = Filled(sentence.text, values);
  switch (sentence.kind) {
    case MessageKind::Admin:
      return ChatLine(sentence.kind, "Server", text);
    case MessageKind::Announcement:
      return ChatLine(sentence.kind, "Korvanta", text);
    case MessageKind::Plain:
      return ChatLine(sentence.kind, "*", text);
    default:
      return ChatLine(sentence.kind, text);
  }
}

Sentence SentenceFor(Refusal refusal) {
  return {MessageKind::Admin, kRefusals.at(static_cast<std::size_t>(refusal)).text};
}

}  // namespace korvanta::practice

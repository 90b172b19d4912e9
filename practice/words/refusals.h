// Why requests are refused, each reason with the sentence that the player reads. No header like the
// others: sentences.h includes it twice, each time with another meaning of REFUSAL.

REFUSAL(None, "")  // the request was carried out

// Logins.
REFUSAL(BadUserName, "A user name has 4 to 20 characters, and only letters and digits.")
REFUSAL(BadPassword, "A password has 1 to 64 characters.")
REFUSAL(WrongPassword,
        "Wrong password. A name belongs to the first password it was used with since the server "
        "was started.")
REFUSAL(NoRoomForAccount, "This server has no room for another name.")
REFUSAL(LoggedInElsewhere, "%1 is logged in already.")
REFUSAL(LoggedInAlready, "You are logged in already.")
REFUSAL(IncompleteLogin, "Your client's login lacks its version, name or password.")
REFUSAL(LoginTooLate, "You did not log in within 30 seconds.")

// Messages and lines.
REFUSAL(MessageTooLong, "Your client sent a message that is far too long.")
REFUSAL(UnknownMessage, "Your client sent something that this server does not know.")
REFUSAL(IncompleteMessage, "That request lacks a part and was not understood.")
REFUSAL(LineTooLong, "A line has at most %1 characters; yours was longer, and nobody has seen it.")
REFUSAL(NoCommand, "There is no command in that line. Type /help for the commands.")
REFUSAL(UnknownCommand,
        "There is no command \"%1\". Type /help for the commands; to talk while Auto Chat is off, "
        "begin the line with the letter c and a space.")
REFUSAL(CommandNeedsMore, "/%1 needs more: type /%1 %2.")
REFUSAL(AdministratorsOnly, "Only an administrator may use /%1.")
REFUSAL(NoOneToReplyTo, "Nobody has spoken to you alone yet.")
REFUSAL(NoOneOnline, "Nobody named \"%1\" is online. Type /who to see who is.")
REFUSAL(TellingYourself, "You cannot speak to yourself.")
REFUSAL(UnknownPlayer, "Nobody named \"%1\" has been here since the server was started.")
REFUSAL(BadDie, "A die has 2 to %1 sides, as in /roll 20.")

// The game.
REFUSAL(NoGameOn,
        "No game is being played right now. Choose \"Enter Game\" (Ctrl+E) for the next one.")
REFUSAL(NotInGame, "You are not in the game. Choose \"Enter Game\" (Ctrl+E).")
REFUSAL(InGameAlready, "You are in the game already.")
REFUSAL(NotWaiting, "You are not in a game, nor waiting for one.")
REFUSAL(GameIsOn, "A game is being played.")
REFUSAL(TooFewPlayers, "A game needs two players who are ready.")
REFUSAL(NotInTournamentGame,
        "The game that begins now is for members of teams who can pay the entry fee.")
REFUSAL(NoSuchTopic, "There is no such topic.")
REFUSAL(NoSuchLevel, "There is no such topic or level.")
REFUSAL(GoldenKnowledgeNeedsTopics, "The Golden Knowledge needs two topics at level 4 first.")
REFUSAL(LevelReachedAlready, "You have reached %1 already.")
REFUSAL(LevelOutOfOrder, "Levels are researched one by one: next is %2.")
REFUSAL(ResearchTooDear, "%1 costs %3 and you have %4. You get %5 with each tick.")
REFUSAL(AttackTooDear, "An attack costs %2 and you have %3.")
REFUSAL(AttackNeedsMilitary, "You need at least Military level 1 to attack.")
REFUSAL(AttackedAlready, "You have attacked already; wait for the next tick.")
REFUSAL(SetBackAlready, "%1 has already been hit since the last tick; wait for the next one.")
REFUSAL(NothingToDestroy, "%1 has researched nothing that you could destroy.")
REFUSAL(Teammate, "%1 is on your team.")
REFUSAL(OpponentOffline, "That player is not online.")
REFUSAL(OpponentNotInGame, "%1 is not in the game.")
REFUSAL(Yourself, "That is you.")
REFUSAL(TeamIsAlliance, "In a tournament game your team is your alliance.")
REFUSAL(AlliedAlready, "%1 is your ally already.")
REFUSAL(HasAlly, "You are allied with %2; /break ends that.")
REFUSAL(OpponentHasAlly, "%1 has another ally.")
REFUSAL(NoAlly, "You have no ally.")

// Teams and tournaments.
REFUSAL(AdministratorsManage, "Only an administrator may manage tournaments.")
REFUSAL(BadTerms,
        "A tournament needs an entry fee of 0 to 1000000, 2 to 1000 teams and 2 to 10000 players.")
REFUSAL(FewerPlayersThanTeams,
        "%2 players cannot make up %1 teams; allow at least as many players as teams.")
REFUSAL(TooManyTeamsAlready, "There are more teams, or players in teams, than that already.")
REFUSAL(TournamentOpenAlready, "There is a tournament already; end it first.")
REFUSAL(NoTournament, "There is no tournament; \"Start Tournament\" opens one.")
REFUSAL(TooFewTeams, "A tournament game needs at least two teams.")
REFUSAL(GameSetAlready, "The next game is the tournament game already.")
REFUSAL(EntryFeeTooHigh, "The entry fee is %1 points of Total Score, and you have %2.")
REFUSAL(BadTeamName, "A team's name has 1 to 20 characters and no colon.")
REFUSAL(BadTeamPassword, "A team's password has 1 to 64 characters.")
REFUSAL(WrongTeamPassword, "That team exists, and its password is a different one.")
REFUSAL(InTeamAlready,
        "You are in the team %3. Leave it first: kick yourself in the list of teams.")
REFUSAL(NoRoomForTeam, "There is no room for another team or player.")
REFUSAL(NotInTeam,
        "You are not in a team. The tournament window (Ctrl+T) lets you create or join one.")
REFUSAL(
    OnlyLeaderDisbands,
    "Only %1, who leads the team, may disband it. To leave it, kick yourself in the list of teams.")
REFUSAL(OnlyLeaderKicks, "Only %1, who leads the team, may kick others from it.")
REFUSAL(NoTeamMember, "You can kick only members of your team: choose the line of one.")

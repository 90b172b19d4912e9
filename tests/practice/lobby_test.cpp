/// What logged-in players say to each other and ask for.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class LobbyTest : public PracticeServerTest {
 protected:
  LobbyTest() { Settle(); }

  ConnectionId anna = LogIn("Anna");
  ConnectionId bobby = LogIn("Bobby");
};

TEST_F(LobbyTest, TalkReachesEveryoneTheSpeakerIncluded) {
  const std::vector<std::pair<std::string, std::string>> lines = {
      {"[ctc]c hello", "Bobby: hello"},
      {"[ctc]/c hello", "Bobby: hello"},
      {"[ctc]C   two  words ", "Bobby: two  words"},
      {"[ctc]c /help", "Bobby: /help"},
      {"[ctc]c [nws]\xff\x80 <b>", "Bobby: [nws]\xff\x80 <b>"},
      {"[ctc]c a\1b\2c\r\nd\x7f\te", "Bobby: abcde"},
      {"[ctc]c " + std::string(298, 'x'), "Bobby: " + std::string(298, 'x')},
  };
  for (const auto& [sent, said] : lines) {
    Send(bobby, sent);
    EXPECT_THAT(Heard(anna), ElementsAre("[msg]cht|" + said + "|False")) << sent;
    EXPECT_THAT(Heard(bobby), ElementsAre("[msg]cht|" + said + "|False")) << sent;
  }
}

TEST_F(LobbyTest, LinesThatCannotBeCarriedOutAreAnsweredToTheirWriterAlone) {
  const std::vector<std::pair<std::string, std::string>> lines = {
      {"", "no command"},
      {"/", "no command"},
      {"c", "nothing"},
      {"c " + std::string(299, 'x'), "at most 300"},
      {"hello there", "no command \"hello\""},
      {"//help", "no command \"/help\""},
      {"tell", "/tell"},
      {"tell Anna", "/tell"},
      {"tell Nobody hi", "\"Nobody\" is online"},
      {"tell bobby hi", "yourself"},
      {"reply hi", "Nobody has told you"},
      {"team hi", "no team"},
      {"me", "/me waves"},
      {"roll 1", "2 to 1000"},
      {"roll 1001", "2 to 1000"},
      {"roll six", "2 to 1000"},
      {"stats Nobody", "\"Nobody\""},
      {"announce hi", "administrator"},
  };
  for (const auto& [line, reason] : lines) {
    EXPECT_THAT(Answers(bobby, "[ctc]" + line),
                ElementsAre(AllOf(StartsWith("[msg]adm|Server: "), HasSubstr(reason))))
        << line;
    EXPECT_THAT(Heard(anna), IsEmpty()) << line;
  }
}

TEST_F(LobbyTest, HelpListsWhatTheAskerMayUse) {
  EXPECT_THAT(Answers(anna, "[ctc]help"),
              AllOf(Contains(HasSubstr("/tell name text")), Contains(HasSubstr("/announce"))));
  EXPECT_THAT(Answers(bobby, "[ctc]/HELP"),
              AllOf(Contains(HasSubstr("/tell name text")), Not(Contains(HasSubstr("/announce")))));
}

TEST_F(LobbyTest, TellAndReplyAreHeardAtBothEndsAlone) {
  const auto carol = LogIn("Carol");
  Settle();
  Send(anna, "[ctc]tell BOBBY meet me: 12:30");
  EXPECT_THAT(Heard(bobby), ElementsAre("[msg]tel|Anna tells you: meet me: 12:30|False"));
  EXPECT_THAT(Heard(anna), ElementsAre("[msg]tel|You tell Bobby: meet me: 12:30|False"));
  Send(bobby, "[ctc]away");
  Heard(bobby);
  Settle();
  Send(bobby, "[ctc]reply fine");
  EXPECT_THAT(Heard(anna), ElementsAre("[msg]tel|Bobby tells you: fine|False"));
  EXPECT_THAT(Answers(anna, "[ctc]reply good"),
              ElementsAre("[msg]tel|You tell Bobby: good|False", HasSubstr("Bobby is away")));
  EXPECT_THAT(Heard(carol), IsEmpty());

  Send(anna, "[dis]");
  EXPECT_THAT(Answers(bobby, "[ctc]reply still there?"), ElementsAre(HasSubstr("\"Anna\" is onl")));
}

TEST_F(LobbyTest, ActionsDiceAndAnnouncementsReachEveryone) {
  Send(bobby, "[ctc]me waves");
  Send(anna, "[ctc]announce Games at noon");
  EXPECT_THAT(Heard(bobby),
              ElementsAre("[msg]pln|*: Bobby waves|False", "[msg]ann|Anna: Games at noon|False"));
  std::set<std::string> rolls;
  for (int i = 0; i < 200; ++i) {
    const auto heard = Answers(bobby, "[ctc]roll 3");
    rolls.insert(heard.begin(), heard.end());
  }
  EXPECT_THAT(rolls, ElementsAre("[msg]pln|*: Bobby rolls 1 of 3|False",
                                 "[msg]pln|*: Bobby rolls 2 of 3|False",
                                 "[msg]pln|*: Bobby rolls 3 of 3|False"));
}

TEST_F(LobbyTest, TheDiceFallTheSameForTheSameSeed) {
  RecordingTransport other_transport;
  Server other(other_transport, {.seed = 7, .players = 0});
  other.Connected(1);
  other.Received(1, "[con]1.6\1Bobby\1secret\0"s);
  other_transport.sent.clear();
  std::string rolls;
  for (int i = 0; i < 20; ++i) {
    const std::string message = "[ctc]roll 1000";
    other.Received(1, message + kMessageTerminator);
    for (const std::string& heard : Answers(bobby, message)) {
      rolls += heard + '\n';
    }
  }
  std::string other_rolls = other_transport.sent[1];
  std::replace(other_rolls.begin(), other_rolls.end(), kFieldSeparator, '|');
  std::replace(other_rolls.begin(), other_rolls.end(), kMessageTerminator, '\n');
  EXPECT_EQ(rolls, other_rolls);
}

TEST_F(LobbyTest, WhoAndTimeTellHowThingsAre) {
  Send(bobby, "[ctc]away");
  EXPECT_THAT(Answers(bobby, "[ctc]who"),
              ElementsAre("[msg]blk|2 online: Anna (administrator), Bobby (away)|False"));
  Pass(2h + 3min + 4s);
  const auto carol = LogIn("Carol");
  Pass(61s);
  EXPECT_THAT(Answers(carol, "[ctc]time"),
              ElementsAre(AllOf(HasSubstr("running for 2:04:06"), HasSubstr("here for 0:01:01"))));
}

TEST_F(LobbyTest, TheOnlineListShowsStandingAndReadiness) {
  Settle();
  EXPECT_THAT(Answers(bobby, "[jon]"), ElementsAre(HasSubstr("when another player is ready"),
                                                   "[onl]Anna|1|1|0&Bobby|5|1|1"));
  Settle();
  Send(bobby, "[tjo]Foxes|pass|");
  EXPECT_THAT(Heard(anna), ElementsAre("[onl]Anna|1|1|0&Bobby|4|1|1"));
  Settle();
  Send(bobby, "[ctc]away");
  EXPECT_THAT(Heard(anna), ElementsAre("[onl]Anna|1|1|0&Bobby|2|1|0"));
}

TEST_F(LobbyTest, ManyChangesAtOnceMakeOneOnlineList) {
  Settle();
  Send(bobby, "[ctc]away");
  EXPECT_THAT(Heard(anna), SizeIs(1));
  for (int i = 0; i < 9; ++i) {
    Send(bobby, "[ctc]away");
  }
  EXPECT_THAT(Heard(anna), IsEmpty());
  Pass(200ms);
  EXPECT_THAT(Heard(anna), ElementsAre("[onl]Anna|1|1|0&Bobby|5|1|0"));
  Pass(200ms);
  EXPECT_THAT(Heard(anna), IsEmpty());
}

TEST_F(LobbyTest, WindowsGetTheirFigures) {
  EXPECT_THAT(Answers(bobby, "[bre] ANNA "), ElementsAre("[bre]Anna|None|1|0|0|0|0|0|0|0|0|0|24"));
  EXPECT_THAT(Answers(bobby, "[bre]Nobody"), ElementsAre(StartsWith("[msg]adm|Server: ")));
  EXPECT_THAT(Answers(bobby, "[nws]"), ElementsAre(HasSubstr("THE GAME\r\n")));
  EXPECT_THAT(Answers(bobby, "[ctc]news"),
              AllOf(Contains("[msg]blk|THE GAME|False"), Contains("[msg]blk||False")));
  EXPECT_THAT(Answers(bobby, "[tif]"), ElementsAre("[tif]0|0|0|0", "[tdd]"));
  EXPECT_THAT(Answers(bobby, "[ttm]"), ElementsAre("[ttm]"));
}

TEST_F(LobbyTest, TeamsAreMadeJoinedAndTalkAmongThemselves) {
  const auto carol = LogIn("Carol");
  const auto david = LogIn("David");
  Settle();
  EXPECT_THAT(Answers(bobby, "[tjo] Foxes |pass|"),
              AllOf(Contains("[tif]0|0|1|1"), Contains("[tdd]Foxes"),
                    Contains("[ttm]Team Foxes, led by Bobby&    Bobby")));
  EXPECT_THAT(Answers(carol, "[tjo]foxes|wrong|"), ElementsAre(HasSubstr("password is another")));
  EXPECT_THAT(Answers(carol, "[tjo]a:b|pass|"), ElementsAre(HasSubstr("no colon")));
  EXPECT_THAT(Answers(carol, "[tjo]Cats||"), ElementsAre(HasSubstr("1 to 64")));
  Send(carol, "[tjo]foxes|pass|");
  EXPECT_THAT(Heard(bobby), Contains("[msg]tem|Foxes - Carol: has joined the team|False"));
  EXPECT_THAT(Answers(carol, "[tjo]Cats|pass|"), ElementsAre(HasSubstr("in the team Foxes")));
  Settle();
  Send(carol, "[ctc]team hi");
  EXPECT_THAT(Heard(bobby), ElementsAre("[msg]tem|Foxes - Carol: hi|False"));
  EXPECT_THAT(Heard(carol), ElementsAre("[msg]tem|Foxes - Carol: hi|False"));
  EXPECT_THAT(Heard(david), IsEmpty());
}

TEST_F(LobbyTest, LeadersKickAndDisbandAndMembersLeave) {
  const auto carol = LogIn("Carol");
  const auto david = LogIn("David");
  for (const auto player : {bobby, carol, david}) {
    Send(player, "[tjo]Foxes|pass|");
  }
  EXPECT_THAT(Answers(anna, "[tkp]Bobby"), ElementsAre(HasSubstr("your own team")));
  EXPECT_THAT(Answers(bobby, "[tkp]Team Foxes, led by Bobby"),
              ElementsAre(HasSubstr("your own team")));
  EXPECT_THAT(Answers(carol, "[tkp]David"), ElementsAre(HasSubstr("Only Bobby")));
  EXPECT_THAT(Answers(carol, "[tdb]"), ElementsAre(HasSubstr("Only Bobby")));
  EXPECT_THAT(Answers(anna, "[tdb]"), ElementsAre(HasSubstr("no team")));

  Heard(david);
  EXPECT_THAT(Answers(bobby, "[tkp]David"),
              Contains("[ttm]Team Foxes, led by Bobby&    Bobby&    Carol"));
  EXPECT_THAT(Heard(david), Contains("[msg]tem|Foxes - Bobby: has kicked David|False"));
  EXPECT_THAT(Answers(bobby, "[tkp]Bobby"), Contains("[ttm]Team Foxes, led by Carol&    Carol"));
  EXPECT_THAT(Answers(carol, "[tdb]"), AllOf(Contains(HasSubstr("has disbanded the team")),
                                             Contains("[ttm]"), Contains("[tif]0|0|0|0")));
  EXPECT_THAT(Answers(carol, "[ctc]team hi"), ElementsAre(HasSubstr("no team")));
}

}  // namespace
}  // namespace korvanta::practice

/// What logged-in players say to each other and ask for.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

class LobbyTest : public PracticeServerTest {
 protected:
  LobbyTest() { Settle(); }

  ConnectionId anna = LogIn("Anna");
  ConnectionId bobby = LogIn("Bobby");
};

TEST_F(LobbyTest, TalkReachesEveryoneTheSpeakerIncluded) {
  const std::pair<std::string, std::string> lines[] = {
      {"/c hello", "cht|Bobby: hello"},
      {"C   two  words ", "cht|Bobby: two  words"},
      {"c [nws]\xff\x80 <b>", "cht|Bobby: [nws]\xff\x80 <b>"},
      {"c a\1b\2c\r\nd\x7f\te", "cht|Bobby: abcde"},
      {"c " + std::string(298, 'x'), "cht|Bobby: " + std::string(298, 'x')},
      {"me waves", "pln|*: Bobby waves"},
  };
  for (const auto& [line, said] : lines) {
    Send(bobby, "[ctc]" + line);
    EXPECT_THAT(Heard(anna), ElementsAre("[msg]" + said + "|False")) << line;
    EXPECT_THAT(Heard(bobby), ElementsAre("[msg]" + said + "|False")) << line;
  }
  Send(anna, "[ctc]announce Games at noon");
  EXPECT_THAT(Heard(bobby), ElementsAre("[msg]ann|Anna: Games at noon|False"));
  std::set<std::string> rolls;
  for (int i = 0; i < 200; ++i) {
    rolls.insert(Answers(bobby, "[ctc]roll 3").front());
  }
  EXPECT_THAT(rolls, ElementsAre(HasSubstr("rolls 1 of 3"), HasSubstr("rolls 2 of 3"),
                                 "[msg]pln|*: Bobby rolls 3 of 3|False"));
}

TEST_F(LobbyTest, LinesThatCannotBeCarriedOutAreAnsweredToTheirWriterAlone) {
  ExpectRefusals({{bobby, "[ctc]", "no command"},
                  {bobby, "[ctc]c", "/c needs more: type /c text."},
                  {bobby, "[ctc]c " + std::string(299, 'x'), "at most 300"},
                  {bobby, "[ctc]hello there", "no command \"hello\""},
                  {bobby, "[ctc]tell Anna", "type /tell name text"},
                  {bobby, "[ctc]tell Nobody hi", "\"Nobody\" is online"},
                  {bobby, "[ctc]tell bobby hi", "yourself"},
                  {bobby, "[ctc]reply hi", "Nobody has spoken to you"},
                  {bobby, "[ctc]roll 1", "2 to 1000"},
                  {bobby, "[ctc]roll 1001", "2 to 1000"},
                  {bobby, "[ctc]stats Nobody", "\"Nobody\""},
                  {bobby, "[ctc]announce hi", "administrator may use /announce"}});
  EXPECT_THAT(Heard(anna), IsEmpty());
}

TEST_F(LobbyTest, CommandsAnswerTheirWriterAlone) {
  EXPECT_THAT(Answers(anna, "[ctc]help"),
              AllOf(Contains(HasSubstr("Ctrl+K")), Contains(HasSubstr("/tell name text - ")),
                    Contains(HasSubstr("/announce"))));
  EXPECT_THAT(Answers(bobby, "[ctc]/HELP"),
              AllOf(Contains(HasSubstr("/tell name text")), Not(Contains(HasSubstr("/announce")))));
  Send(bobby, "[ctc]away");
  EXPECT_THAT(Answers(bobby, "[ctc]who"),
              ElementsAre("[msg]blk|2 online: Anna (administrator), Bobby (away)|False"));
  EXPECT_THAT(Answers(bobby, "[ctc]stats ANNA"),
              ElementsAre(HasSubstr("Anna: level 1, total score 0, 0 of 0 games won.")));
  EXPECT_THAT(Answers(bobby, "[ctc]best"), Contains("[msg]blk|  Anna: 0|False"));
  EXPECT_THAT(Answers(bobby, "[ctc]news"),
              AllOf(Contains("[msg]blk|THE GAME|False"), Contains("[msg]blk||False")));
  Pass(2h + 3min + 4s);
  const auto carol = LogIn("Carol");
  Pass(61s);
  EXPECT_THAT(Answers(carol, "[ctc]time"),
              ElementsAre(AllOf(HasSubstr("running for 2:04:06"), HasSubstr("here for 0:01:01"))));
}

TEST_F(LobbyTest, TellAndReplyAreHeardAtBothEndsAlone) {
  const auto carol = LogIn("Carol");
  Settle();
  Send(anna, "[ctc]tell BOBBY meet me: 12:30");
  EXPECT_THAT(Heard(bobby), ElementsAre("[msg]tel|Anna tells you: meet me: 12:30|False"));
  EXPECT_THAT(Heard(anna), ElementsAre("[msg]tel|You tell Bobby: meet me: 12:30|False"));
  Send(bobby, "[ctc]away");
  Settle();
  Send(bobby, "[ctc]reply fine");
  EXPECT_THAT(Heard(anna), ElementsAre("[msg]tel|Bobby tells you: fine|False"));
  EXPECT_THAT(Answers(anna, "[ctc]reply good"),
              ElementsAre("[msg]tel|You tell Bobby: good|False", HasSubstr("Bobby is away")));
  EXPECT_THAT(Heard(carol), IsEmpty());
  Send(anna, "[dis]");
  EXPECT_THAT(Answers(bobby, "[ctc]reply still there?"), ElementsAre(HasSubstr("\"Anna\" is onl")));
}

TEST_F(LobbyTest, TheOnlineListIsSentWhenItShowsSomethingElse) {
  Settle();
  const std::pair<const char*, std::vector<std::string>> changes[] = {
      {"[jon]", {"[onl]Anna|1|1|0&Bobby|5|1|1"}},
      {"[tjo]Foxes|pass|", {"[onl]Anna|1|1|0&Bobby|4|1|1"}},
      {"[ctc]away", {"[onl]Anna|1|1|0&Bobby|2|1|0"}},
      {"[tdb]", {}},
      {"[ctc]away", {"[onl]Anna|1|1|0&Bobby|5|1|0"}},
  };
  for (const auto& [request, list] : changes) {
    Send(bobby, request);
    EXPECT_THAT(Heard(anna), IsEmpty());
    Pass(99ms);
    EXPECT_THAT(Heard(anna), IsEmpty()) << "many changes make one list";
    Pass(1ms);
    EXPECT_EQ(Heard(anna), list) << request;
  }
}

TEST_F(LobbyTest, WindowsGetTheirFigures) {
  EXPECT_THAT(Answers(bobby, "[bre] ANNA "), ElementsAre("[bre]Anna|None|1|0|0|0|0|0|0|0|0|0|24"));
  EXPECT_THAT(Answers(bobby, "[bre][nws]x"),
              ElementsAre("[bre]nws]x|Unknown player|0|0|0|0|0|0|0|0|0|0|24",
                          HasSubstr("Nobody named \"[nws]x\"")));
  EXPECT_THAT(Answers(bobby, "[nws]"), ElementsAre(HasSubstr("THE GAME\r\n")));
}

}  // namespace
}  // namespace korvanta::practice

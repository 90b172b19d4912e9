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

TEST_F(LobbyTest, TheNewsWindowGetsItsText) {
  EXPECT_THAT(Answers(bobby, "[nws]"), ElementsAre(HasSubstr("THE GAME\r\n")));
}

}  // namespace
}  // namespace korvanta::practice

/// Teams and tournaments as the tournament window asks for them.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

class TeamsTest : public PracticeServerTest {
 protected:
  ConnectionId anna = LogIn("Anna");
  ConnectionId bobby = LogIn("Bobby");
  ConnectionId carol = LogIn("Carol");
  ConnectionId david = LogIn("David");
};

TEST_F(TeamsTest, OnlyAnAdministratorManagesThemWithinTheirTerms) {
  ExpectRefusals({{bobby, "[tcr]1|2|3|", "Only an administrator"},
                  {bobby, "[tst]", "Only an administrator"},
                  {bobby, "[ted]", "Only an administrator"},
                  {anna, "[tst]", "no tournament"},
                  {anna, "[ted]", "no tournament"},
                  {anna, "[tcr]fifty|2|4|", "needs an entry fee of"},
                  {anna, "[tcr]0|1|4|", "needs an entry fee of"},
                  {anna, "[tcr]0|8|4|", "4 players cannot make up 8 teams"}});
  EXPECT_THAT(
      Answers(anna, "[tcr] 5|2|2|"),
      ElementsAre(HasSubstr("for 2 teams and 2 players, entry fee 5."), "[tif]5|0|0|0", "[tdd]"));
  Send(anna, "[ted]");
  Send(anna, "[tcr]0|2|2|");
  Send(anna, "[tjo]Cats|pass|");
  ExpectRefusals({{anna, "[tcr]50|2|4|", "a tournament already"}, {anna, "[tst]", "two teams"}});
  Send(bobby, "[tjo]Foxes|pass|");
  ExpectRefusals({{carol, "[tjo]Cats|pass|", "no room"}});
  Send(anna, "[tst]");
  ExpectRefusals({{anna, "[tst]", "tournament game already"}});
  Heard(bobby);
  EXPECT_THAT(Answers(anna, "[ted]"), Contains(HasSubstr("The tournament is over.")));
  EXPECT_THAT(Heard(bobby), Contains(HasSubstr("Foxes - Anna: the tournament is over; your team")));
  Send(carol, "[tjo]Cats|pass|");
  ExpectRefusals({{anna, "[tcr]0|2|2|", "more teams, or players"}});
  Send(anna, "[tcr]0|2|3|");
  EXPECT_THAT(Answers(anna, "[tst]"), Contains(HasSubstr("will be the tournament game")));
}

TEST_F(TeamsTest, TeamsAreMadeJoinedAndTalkAmongThemselves) {
  EXPECT_THAT(Answers(bobby, "[tif]"), ElementsAre("[tif]0|0|0|0", "[tdd]"));
  EXPECT_THAT(Answers(bobby, "[tjo] Foxes |pass|"),
              ElementsAre(HasSubstr("You lead the new team"), "[tif]0|0|1|1", "[tdd]Foxes",
                          "[ttm]Team Foxes, led by Bobby&    Bobby"));
  EXPECT_THAT(Answers(carol, "[tjo]foxes|wrong|"),
              ElementsAre(HasSubstr("password is a different one"), "[tif]0|0|1|1; wrong password",
                          "[tdd]Foxes"));
  ExpectRefusals({{carol, "[tjo]a:b|pass|", "no colon"},
                  {carol, "[tjo]a name that is too long|pass|", "1 to 20"},
                  {carol, "[tjo]Cats||", "1 to 64"},
                  {carol, "[ctc]team hi", "not in a team"}});
  Send(carol, "[tjo]foxes|pass|");
  EXPECT_THAT(Heard(bobby), ElementsAre("[msg]tem|Foxes - Carol: has joined the team|False"));
  ExpectRefusals({{carol, "[tjo]Cats|pass|", "in the team Foxes"}});
  EXPECT_THAT(Answers(carol, "[ctc]team hi"), ElementsAre("[msg]tem|Foxes - Carol: hi|False"));
  EXPECT_THAT(Heard(bobby), ElementsAre("[msg]tem|Foxes - Carol: hi|False"));
  EXPECT_THAT(Heard(david), IsEmpty());
}

TEST_F(TeamsTest, LeadersKickAndDisbandAndMembersLeave) {
  for (const auto player : {bobby, carol, david}) {
    Send(player, "[tjo]Foxes|pass|");
  }
  ExpectRefusals({{anna, "[tkp]Bobby", "members of your team"},
                  {bobby, "[tkp]Team Foxes, led by Bobby", "members of your team"},
                  {carol, "[tkp]David", "Only Bobby"},
                  {carol, "[tdb]", "Only Bobby"},
                  {anna, "[tdb]", "not in a team"}});
  Heard(david);
  EXPECT_THAT(Answers(bobby, "[tkp]David"),
              Contains("[ttm]Team Foxes, led by Bobby&    Bobby&    Carol"));
  EXPECT_THAT(Heard(david), ElementsAre("[msg]tem|Foxes - Bobby: has kicked David|False"));
  EXPECT_THAT(Answers(bobby, "[tkp]Bobby"), Contains("[ttm]Team Foxes, led by Carol&    Carol"));
  Send(bobby, "[tjo]Foxes|pass|");
  EXPECT_THAT(Answers(bobby, "[tkp]Bobby"), Contains("[ttm]Team Foxes, led by Carol&    Carol"));
  EXPECT_THAT(Answers(carol, "[tkp]Carol"),
              ElementsAre(HasSubstr("has left the team"), "[tif]0|0|0|0", "[tdd]", "[ttm]"));
}

}  // namespace
}  // namespace korvanta::practice

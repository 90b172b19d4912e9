/// Games as players see them, from "Enter Game" to the next one.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class ArenaTest : public PracticeServerTest {
 protected:
  ArenaTest() { Settle(); }

  /// Anna and Bobby play; the lines that began it are forgotten.
  void Begin() {
    Send(anna, "[jon]");
    Send(bobby, "[jon]");
    Pass(15s);
    Settle();
  }
  void PassTicks(int ticks) {
    for (int i = 0; i < ticks; ++i) {
      Pass(15s);
    }
  }
  /// The player buys two topics and the Golden Knowledge, waiting for points as needed.
  void Win(ConnectionId player) {
    for (const char* topic : {"2", "3"}) {
      for (const char* level : {"1", "2", "3", "4"}) {
        AskUntil(player, std::string("[upg]") + topic + "|" + level + "|", StartsWith("[upg]"));
      }
    }
    AskUntil(player, "[upg]5|5|", testing::Eq("[sou]6"));
  }
  /// Asks once a tick until something like that is heard.
  void AskUntil(ConnectionId player, const std::string& request,
                const testing::Matcher<std::string>& answer) {
    for (int tick = 0; tick < 50; ++tick) {
      if (testing::Value(Answers(player, request), Contains(answer))) {
        return;
      }
      PassTicks(1);
    }
    FAIL() << request << " brought nothing in 50 ticks";
  }

  ConnectionId anna = LogIn("Anna");
  ConnectionId bobby = LogIn("Bobby");
};

TEST_F(ArenaTest, AGameBeginsWhenTwoHaveGathered) {
  EXPECT_THAT(Answers(anna, "[jon]"), Contains(HasSubstr("when another player is ready")));
  Pass(60s);
  EXPECT_THAT(Answers(anna, "[upg]1|1|"), ElementsAre(HasSubstr("No game is being played")));
  EXPECT_THAT(Answers(bobby, "[jon]"),
              AllOf(Contains(HasSubstr("ready for the next game")), Contains("[tim]15")));
  EXPECT_THAT(Heard(anna), Contains("[tim]15"));
  Pass(15s);
  EXPECT_THAT(Heard(anna),
              AllOf(Contains(HasSubstr("Game 1 begins: Anna and Bobby")), Contains("[sou]1"),
                    Contains("[poi]6"), Contains("[onl]Anna|6|1|1&Bobby|6|1|1")));
  EXPECT_THAT(Answers(anna, "[jon]"), ElementsAre(HasSubstr("in the game already")));
  Heard(bobby);
  Pass(15s);
  EXPECT_THAT(Heard(bobby), ElementsAre("[cap]Game 1, tick 1", "[tim]15", "[sou]2", "[poi]9"));
}

TEST_F(ArenaTest, MovesAreAnsweredAsTheyGo) {
  Begin();
  EXPECT_THAT(Answers(anna, "[upg]1|1|"), ElementsAre("[upg]1|1", "[poi]2", "[sou]5"));
  EXPECT_THAT(Heard(bobby), IsEmpty()) << "research is nobody else's business";
  const std::vector<std::pair<std::string, std::string>> refusals = {
      {"[upg]1|2|", "costs 8 points and you have 2"},
      {"[upg]1|4|", "next is Military level 2"},
      {"[upg]2|5|", "no such topic or level"},
      {"[upg]9|1|", "no such topic or level"},
      {"[upg]|x|", "no such topic or level"},
      {"[upg]5|5|", "two topics at level 4"},
      {"[inf]7", "no such topic"},
      {"[att]Anna", "That is you"},
      {"[att]Nobody", "not online"},
      {"[att]Bobby", "nothing that you could destroy"},
      {"[aly]Anna", "That is you"},
      {"[ctc]/break", "no ally"},
  };
  for (const auto& [request, reason] : refusals) {
    EXPECT_THAT(Answers(anna, request),
                ElementsAre(AllOf(StartsWith("[msg]adm|Server: "), HasSubstr(reason))))
        << request;
  }
  EXPECT_THAT(Answers(anna, "[inf]1"),
              ElementsAre(AllOf(HasSubstr("Level 2 costs 8 points. You have 2 points"))));
  EXPECT_THAT(Answers(anna, "[ctc]/game"),
              Contains(HasSubstr("  Anna: Military 1, Industry 0, Population 0, Defense 0")));
}

TEST_F(ArenaTest, AttacksAndAlliancesReachBothSides) {
  Begin();
  Send(anna, "[upg]1|1|");
  Send(bobby, "[upg]2|1|");
  PassTicks(1);
  AskUntil(anna, "[att]Bobby", HasSubstr("whose Industry falls to level 0"));
  EXPECT_THAT(Heard(bobby), AllOf(Contains("[att]2|0"), Contains("[sou]4")));
  PassTicks(1);
  EXPECT_THAT(Answers(anna, "[att]Bobby"), ElementsAre(HasSubstr("nothing that you could")));

  EXPECT_THAT(Answers(anna, "[aly]Bobby"), ElementsAre(HasSubstr("You offer Bobby")));
  EXPECT_THAT(Heard(bobby), Contains(HasSubstr("Anna offers you")));
  Settle();
  EXPECT_THAT(Answers(bobby, "[aly]anna"), Contains(HasSubstr("are allied now")));
  EXPECT_THAT(Heard(anna), Contains("[onl]Anna|3|1|1&Bobby|3|1|1"));
  EXPECT_THAT(Answers(anna, "[bre]Anna"), ElementsAre(StartsWith("[bre]Anna|Bobby|1|")));
  EXPECT_THAT(Answers(anna, "[ctc]/break"), Contains(HasSubstr("allied no longer")));
}

TEST_F(ArenaTest, AWinIsCountedCheeredAndClearedForTheNextGame) {
  Begin();
  Win(anna);
  EXPECT_THAT(Heard(bobby), AllOf(Contains(HasSubstr("Anna needs only the Golden Knowledge")),
                                  Contains(HasSubstr("Anna wins game 1")), Contains("[end]20"),
                                  Not(Contains("[sou]6"))));
  EXPECT_THAT(journal.back(), StartsWith("Anna wins game 1 after "));
  // Two topics of 10 + 20 + 30 + 40, 50 for the Golden Knowledge, 300 for the win.
  EXPECT_THAT(Answers(bobby, "[bre]Anna"), ElementsAre("[bre]Anna|None|1|1|1|9|0|0|0|550|0|0|11"));
  EXPECT_THAT(Answers(bobby, "[bre]Bobby"), ElementsAre("[bre]Bobby|None|2|0|1|0|0|0|0|0|0|0|24"));
  EXPECT_THAT(Answers(bobby, "[jon]"), Contains(HasSubstr("You are ready for the next game")));
  Pass(20s);
  EXPECT_THAT(Heard(anna), AllOf(Contains("[clr]"), Contains("[onl]Anna|1|1|0&Bobby|5|1|1")));
  Send(anna, "[jon]");
  Pass(15s);
  EXPECT_THAT(Heard(anna), Contains(HasSubstr("Game 2 begins")));
}

TEST_F(ArenaTest, LatecomersEnterUntilSomeoneNeedsOnlyTheGoldenKnowledge) {
  const auto carol = LogIn("Carol");
  const auto david = LogIn("David");
  Begin();
  PassTicks(10);
  EXPECT_THAT(Answers(carol, "[jon]"),
              AllOf(Contains("[tim]14"), Contains("[poi]28"), Contains(HasSubstr("catch up"))));
  Win(bobby);
  Settle();
  EXPECT_THAT(Answers(david, "[jon]"), Contains(HasSubstr("ready for the next game")));
}

TEST_F(ArenaTest, WhoLeavesIsOutAndTheLastSideWins) {
  const auto carol = LogIn("Carol");
  Send(carol, "[jon]");
  Begin();
  PassTicks(5);
  EXPECT_THAT(Answers(carol, "[ctc]/leave"), Contains("[clr]"));
  EXPECT_THAT(Heard(anna), Contains(HasSubstr("Carol leaves the game")));
  EXPECT_THAT(Answers(carol, "[jon]"), Contains(HasSubstr("ready for the next game")));
  EXPECT_THAT(Answers(carol, "[att]Anna"), ElementsAre(HasSubstr("You are not in the game")));
  server.Vanished(bobby);
  EXPECT_THAT(Heard(anna), AllOf(Contains(HasSubstr("Bobby is gone from the game")),
                                 Contains(HasSubstr("Anna wins game 1")), Contains("[sou]6")));
}

TEST_F(ArenaTest, AWinWithoutAGameCountsForNothing) {
  Begin();
  Send(bobby, "[ctc]/leave");
  EXPECT_THAT(Heard(anna), Contains(HasSubstr("Anna wins game 1")));
  EXPECT_THAT(Answers(anna, "[bre]Anna"), ElementsAre("[bre]Anna|None|1|0|1|0|0|0|0|0|0|0|24"));
}

TEST_F(ArenaTest, WhoeverIsLostFindsTheSamePlaceAgain) {
  LogIn("Carol");
  const auto david = LogIn("David");
  Send(david, "[jon]");
  Begin();
  PassTicks(4);
  Send(bobby, "[upg]1|1|");
  Settle();
  server.Vanished(bobby);
  PassTicks(3);
  const auto again = LogIn("Bobby");
  EXPECT_THAT(Answers(again, "[jon]"),
              AllOf(Contains("[upg]1|1"), Contains("[poi]14"), Contains("[sou]1")));
  EXPECT_THAT(Answers(again, "[bre]Bobby"), ElementsAre(StartsWith("[bre]Bobby|None|2|0|1|")));
}

TEST_F(ArenaTest, OnlyAnAdministratorManagesTournamentsWithinTheirTerms) {
  for (const char* request : {"[tcr]1|2|3|", "[tst]", "[ted]"}) {
    EXPECT_THAT(Answers(bobby, request), ElementsAre(HasSubstr("Only an administrator")))
        << request;
  }
  EXPECT_THAT(Answers(anna, "[tst]"), ElementsAre(HasSubstr("no tournament")));
  EXPECT_THAT(Answers(anna, "[ted]"), ElementsAre(HasSubstr("no tournament")));
  EXPECT_THAT(Answers(anna, "[tcr]fifty|2|4|"), ElementsAre(HasSubstr("takes an entry fee")));
  EXPECT_THAT(Answers(anna, "[tcr] 0|2|2|"), Contains("[tif]0|0|0|0"));
  EXPECT_THAT(Answers(anna, "[tcr]50|2|4|"), ElementsAre(HasSubstr("already")));
  Send(anna, "[tjo]Cats|pass|");
  EXPECT_THAT(Answers(anna, "[tst]"), ElementsAre(HasSubstr("two teams")));
  Send(bobby, "[tjo]Foxes|pass|");
  EXPECT_THAT(Answers(LogIn("Carol"), "[tjo]Cats|pass|"), ElementsAre(HasSubstr("no room")));
  EXPECT_THAT(Answers(anna, "[ted]"), Contains(HasSubstr("is over")));
  EXPECT_THAT(Answers(anna, "[tcr]0|2|1|"), ElementsAre(HasSubstr("takes an entry fee")));
  EXPECT_THAT(Answers(anna, "[tcr]50|2|2|"), Contains("[tif]50|100|2|2"));
  EXPECT_THAT(Answers(LogIn("David"), "[tjo]Owls|pass|"),
              ElementsAre(HasSubstr("entry fee is 50")));
}

TEST_F(ArenaTest, ATournamentGameIsForTeamsAndItsPurseForTheWinners) {
  const auto carol = LogIn("Carol");
  for (const auto winner : {bobby, carol}) {  // so that both can pay
    Begin();
    Send(carol, "[jon]");
    Win(winner);
    Pass(20s);
  }
  Send(carol, "[tjo]Cats|pass|");
  Send(bobby, "[tjo]Foxes|pass|");
  Send(anna, "[tcr]50|2|3|");
  EXPECT_THAT(Answers(anna, "[tst]"), Contains(HasSubstr("tournament game")));
  for (const auto player : {anna, bobby, carol}) {
    Send(player, "[jon]");
  }
  Pass(15s);
  EXPECT_THAT(Heard(carol), Contains(HasSubstr("Tournament game 3 begins: Bobby and Carol")));
  EXPECT_THAT(Heard(anna), Contains(HasSubstr("for members of teams")));
  EXPECT_THAT(Answers(anna, "[jon]"), Contains(HasSubstr("ready for the next game")));
  Win(carol);
  EXPECT_THAT(Heard(bobby), Contains(HasSubstr("Carol wins game 3 after")));
  Pass(20s);
  EXPECT_THAT(Heard(bobby), Contains("[clt]"));
  // Twice 550 as for any win, less 50, and the purse of 100.
  EXPECT_THAT(Answers(anna, "[bre]Carol"),
              ElementsAre(AllOf(StartsWith("[bre]Carol|None|3|2|"), HasSubstr("|1150|"))));
}

TEST_F(ArenaTest, AnAdministratorNeedNotWait) {
  EXPECT_THAT(Answers(anna, "[ctc]/start"), ElementsAre(HasSubstr("two players")));
  Send(anna, "[jon]");
  Send(bobby, "[jon]");
  EXPECT_THAT(Answers(anna, "[ctc]/start"), Contains(HasSubstr("Game 1 begins")));
  EXPECT_THAT(Answers(anna, "[ctc]/start"), ElementsAre(HasSubstr("is being played")));
}

}  // namespace
}  // namespace korvanta::practice

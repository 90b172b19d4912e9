/// Games as players see them, from "Enter Game" to the next one.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

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
  /// The player buys two topics, waiting for points as needed.
  void NearlyWin(ConnectionId player) {
    for (const char* level : {"2|1", "2|2", "2|3", "2|4", "3|1", "3|2", "3|3", "3|4"}) {
      AskUntil(player, std::string("[upg]") + level + "|", StartsWith("[upg]"));
    }
  }
  void Win(ConnectionId player) { AskUntil(player, "[upg]5|5|", Eq("[sou]6")); }
  /// Asks once a tick until something like that is heard.
  void AskUntil(ConnectionId player, const std::string& request,
                const Matcher<std::string>& answer) {
    for (int tick = 0; tick < 50; ++tick) {
      if (Value(Answers(player, request), Contains(answer))) {
        return;
      }
      Pass(15s);
    }
    FAIL() << request << " brought nothing in 50 ticks";
  }

  ConnectionId anna = LogIn("Anna");
  ConnectionId bobby = LogIn("Bobby");
};

TEST_F(ArenaTest, AGameBeginsWhenTwoHaveGathered) {
  EXPECT_THAT(Answers(anna, "[jon]"), ElementsAre(HasSubstr("when another player is ready")));
  EXPECT_THAT(Answers(anna, "[ctc]/start"), ElementsAre(HasSubstr("needs two players")));
  Pass(60s);
  Heard(anna);
  EXPECT_THAT(Answers(bobby, "[jon]"),
              ElementsAre("[tim]15", HasSubstr("ready for the next game, which begins in 15 sec")));
  EXPECT_THAT(Heard(anna), ElementsAre("[tim]15"));
  Pass(15s);
  EXPECT_THAT(Heard(anna),
              ElementsAre("[onl]Anna|1|1|1&Bobby|5|1|1", HasSubstr("Game 1 begins: Anna and Bobby"),
                          "[tim]15", "[poi]6", "[sou]1", "[onl]Anna|6|1|1&Bobby|6|1|1"));
  Pass(15s);
  EXPECT_THAT(Heard(anna), ElementsAre("[cap]Game 1, tick 1", "[tim]15", "[sou]2", "[poi]9"));
}

TEST_F(ArenaTest, AttacksAndAlliancesReachBothSidesAndTheOneHitIsAlerted) {
  const auto carol = LogIn("Carol");
  Send(carol, "[jon]");
  Begin();
  Send(anna, "[upg]1|1|");
  Send(bobby, "[upg]2|1|");
  ExpectRefusals({{anna, "[att]Bobby", "An attack costs 3 points and you have 2."},
                  {bobby, "[att]Anna", "You need at least Military level 1 to attack."}});
  Pass(15s);
  AskUntil(anna, "[att]Bobby", Eq("[sou]3"));
  for (int tick = 0; tick < 9 && Answers(anna, "[att]Bobby").size() > 1; ++tick) {
    Pass(15s);
  }
  EXPECT_THAT(Heard(bobby),
              AllOf(Contains("[att]2|0"), Contains("[sou]4"),
                    Contains("[msg]tel|Attack on you: Anna destroys a level of your research. "
                             "Industry falls to level 0.|False"),
                    Not(Contains(HasSubstr("whose Industry")))));
  EXPECT_THAT(Heard(carol), Contains(HasSubstr("Bobby, whose Industry falls to level 0")));

  EXPECT_THAT(Answers(anna, "[aly]Bobby"), ElementsAre(HasSubstr("You offer Bobby")));
  EXPECT_THAT(Heard(bobby), ElementsAre(HasSubstr("Anna offers you")));
  EXPECT_THAT(Answers(bobby, "[aly]anna"), ElementsAre(HasSubstr("are allies now")));
  EXPECT_THAT(Answers(bobby, "[aly]anna"), ElementsAre(HasSubstr("Anna is your ally already.")));
  EXPECT_THAT(Answers(bobby, "[aly]carol"), ElementsAre(HasSubstr("allied with Anna; /break")));
  EXPECT_THAT(Answers(carol, "[aly]anna"), ElementsAre(HasSubstr("Anna has another ally.")));
  Pass(100ms);
  EXPECT_THAT(Heard(anna), Contains("[onl]Anna|3|1|1&Bobby|3|1|1&Carol|6|1|1"));
  EXPECT_THAT(Answers(carol, "[bre]Anna"), ElementsAre(StartsWith("[bre]Anna|Bobby|1|")));
  EXPECT_THAT(Answers(anna, "[ctc]/break"), ElementsAre(HasSubstr("no longer allies")));
}

TEST_F(ArenaTest, AWinIsCountedCheeredAndClearedForTheNextGame) {
  const auto carol = LogIn("Carol");
  const auto david = LogIn("David");
  Begin();
  Pass(10 * 15s);
  EXPECT_THAT(Answers(carol, "[jon]"),
              ElementsAre("[tim]14", "[poi]28", "[sou]1", HasSubstr("28 points to catch up")));
  NearlyWin(anna);
  EXPECT_THAT(Answers(david, "[jon]"), ElementsAre(HasSubstr("game; one is being played now")));
  Win(anna);
  EXPECT_THAT(Heard(bobby), AllOf(Contains(HasSubstr("Anna needs only the Golden Knowledge")),
                                  Contains(HasSubstr("Anna wins game 1")), Contains("[end]20"),
                                  Not(Contains("[sou]6"))));
  EXPECT_THAT(journal.back(), StartsWith("Anna wins game 1 after "));
  // Two topics of 10 + 20 + 30 + 40, 50 for the Golden Knowledge, 300 for the win.
  EXPECT_THAT(Answers(bobby, "[bre]Anna"), ElementsAre("[bre]Anna|None|1|1|1|9|0|0|0|550|0|0|11"));
  EXPECT_THAT(Answers(bobby, "[jon]"), ElementsAre(HasSubstr("which begins in 35 seconds")));
  Pass(20s);
  EXPECT_THAT(Heard(anna), AllOf(Contains("[clr]"),
                                 Contains("[onl]Anna|1|1|0&Bobby|5|1|1&Carol|5|1|0&David|5|1|1")));
  EXPECT_THAT(Answers(anna, "[ctc]/start"), Contains(HasSubstr("Game 2 begins: Bobby and David")));
}

TEST_F(ArenaTest, WhoeverLeavesIsOutAndTheLastSideWinsWhatCountsAfterFiveTicks) {
  Begin();
  Send(bobby, "[ctc]/leave");
  EXPECT_THAT(Heard(anna), Contains(HasSubstr("Anna wins game 1")));
  EXPECT_THAT(Answers(anna, "[bre]Anna"), ElementsAre("[bre]Anna|None|1|0|1|0|0|0|0|0|0|0|24"));
  Pass(20s);
  const auto carol = LogIn("Carol");
  Send(carol, "[jon]");
  Begin();
  Pass(5 * 15s);
  EXPECT_THAT(Answers(carol, "[ctc]/leave"), Contains("[clr]"));
  EXPECT_THAT(Heard(anna), Contains(HasSubstr("Carol leaves the game")));
  EXPECT_THAT(Answers(carol, "[jon]"), ElementsAre(HasSubstr("ready for the next game")));
  server.Vanished(carol);
  const auto back = Connect();
  EXPECT_THAT(Answers(back, "[con]1.6|Carol|secret"), Contains("[tim]0")) << "no place is kept";
  server.Vanished(bobby);
  EXPECT_THAT(Heard(anna), AllOf(Contains(HasSubstr("Bobby is gone from the game")),
                                 Contains(HasSubstr("Anna wins game 2")), Contains("[sou]6")));
  EXPECT_THAT(Answers(anna, "[bre]Anna"), ElementsAre(StartsWith("[bre]Anna|None|1|1|2|")));
  Pass(20s);
  bobby = LogIn("Bobby");
  Begin();
  EXPECT_THAT(Answers(back, "[jon]"), Contains(HasSubstr("to catch up")));
}

TEST_F(ArenaTest, ALoginShowsHowThingsStand) {
  const auto carol = LogIn("Carol");
  Send(carol, "[jon]");
  Begin();
  Send(bobby, "[upg]1|1|");
  server.Vanished(bobby);
  Pass(3 * 15s);
  EXPECT_THAT(Answers(Connect(), "[con]1.6|Bobby|secret"),
              AllOf(Contains("[upg]1|1"), Contains("[upg]2|0"), Contains("[poi]2"),
                    Contains("[tim]14"), Contains(HasSubstr("has been kept"))));
  EXPECT_THAT(Heard(carol), Contains(HasSubstr("Bobby is back in the game")));
  EXPECT_THAT(Answers(Connect(), "[con]1.6|David|secret"),
              AllOf(Contains("[upg]1|0"), Contains("[poi]0"), Contains("[tim]0")));
}

TEST_F(ArenaTest, ATournamentGameIsForTeamsAndItsPurseForTheWinners) {
  const auto carol = LogIn("Carol");
  for (const auto winner : {anna, bobby, carol}) {  // so that all can pay
    Begin();
    Send(carol, "[jon]");
    NearlyWin(winner);
    Win(winner);
    Pass(20s);
  }
  Send(carol, "[tjo]Cats|pass|");
  Send(anna, "[tjo]Cats|pass|");
  Send(bobby, "[tjo]Foxes|pass|");
  Send(anna, "[tcr]50|2|3|");
  ExpectRefusals(
      {{LogIn("David"), "[tjo]Foxes|pass|", "50 points of Total Score, and you have 0"}});
  Begin();
  EXPECT_THAT(Answers(anna, "[tst]"), ElementsAre(HasSubstr("The next game will be the tournament"),
                                                  HasSubstr("is played to its end first")));
  EXPECT_THAT(Answers(carol, "[jon]"), ElementsAre(HasSubstr("one is being played now")));
  NearlyWin(anna);
  Win(anna);
  Pass(20s + 15s);  // members of teams need not ask again
  ExpectRefusals({{carol, "[att]Anna", "Anna is on your team."},
                  {carol, "[aly]Bobby", "In a tournament game your team is your alliance."}});
  NearlyWin(carol);
  Win(carol);
  EXPECT_THAT(journal, Contains("Tournament game 5 begins: Anna, Bobby and Carol"));
  EXPECT_THAT(Heard(bobby), Contains(HasSubstr("Anna and Carol win game 5 after")));
  Pass(20s);
  EXPECT_THAT(Heard(bobby), Contains("[clt]"));
  // 550 for each win, less 50, and half the purse of 150; 200 for an ally's win.
  EXPECT_THAT(Answers(anna, "[bre]Carol"),
              ElementsAre(AllOf(StartsWith("[bre]Carol|None|3|2|"), HasSubstr("|1125|"))));
  EXPECT_THAT(Answers(bobby, "[bre]Anna"), ElementsAre(HasSubstr("|1325|")));
}

}  // namespace
}  // namespace korvanta::practice

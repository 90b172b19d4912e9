/// Whole evenings of simulated players, by seed.
#include <regex>

#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;
using testing::SizeIs;
using testing::StartsWith;

struct Evening {
  std::vector<std::string> journal;
  std::vector<std::string> winners;
  std::vector<std::int64_t> seconds;  // each game's length
};

Evening Play(std::uint64_t seed, int players, std::size_t games) {
  Evening evening;
  RecordingTransport transport;
  std::chrono::milliseconds now{0};
  std::chrono::milliseconds begun{0};
  Server server(transport, {.seed = seed, .players = players}, [&](std::string_view line) {
    evening.journal.emplace_back(line);
    std::smatch win;
    if (line.find(" begins: ") != std::string_view::npos) {
      begun = now;
    } else if (std::regex_search(evening.journal.back(), win, std::regex("^(.*) wins? game "))) {
      evening.winners.push_back(win[1]);
      evening.seconds.push_back((now - begun) / 1s);
    }
  });
  while (evening.winners.size() < games && now < 3h) {
    now += 100ms;
    server.Tick(now);
  }
  return evening;
}

TEST(Evening, EveryGameOfSimulatedPlayersEndsInAWinOfItsOwnLength) {
  const Evening evening = Play(1, 6, 10);
  ASSERT_THAT(evening.winners, SizeIs(10));
  EXPECT_THAT(evening.seconds, Each(AllOf(Ge(180), Le(720))));
  EXPECT_GE(std::set<std::string>(evening.winners.begin(), evening.winners.end()).size(), 3U);
}

TEST(Evening, ASeedReplaysTheEvening) {
  const Evening evening = Play(5, 6, 4);
  EXPECT_EQ(Play(5, 6, 4).journal, evening.journal);
  EXPECT_NE(Play(6, 6, 4).journal, evening.journal);
}

TEST(Evening, AnyNumberOfSimulatedPlayersFindsItsGame) {
  for (int players : {2, 3, 12, 2000}) {
    EXPECT_THAT(Play(3, players, 1).winners, SizeIs(1)) << players;
  }
}

class CompanyTest : public PracticeServerTest {
 protected:
  CompanyTest() : PracticeServerTest({.seed = 2, .players = 6}) { Pass(1s); }

  /// Everything that was heard in the time.
  std::vector<std::string> HeardWithin(ConnectionId connection, std::chrono::seconds time) {
    Heard(connection);
    for (std::chrono::milliseconds passed{0}; passed < time; passed += 100ms) {
      Pass(100ms);
    }
    return Heard(connection);
  }
};

TEST_F(CompanyTest, APersonIsTheAdministratorAndFindsAGameAndTalkWithinAMinute) {
  const auto anna = Connect();
  Send(anna, "[con]1.6|Anna|secret");
  EXPECT_THAT(Heard(anna), Contains("[con]Anna|90"));
  Send(anna, "[jon]");
  const auto heard = HeardWithin(anna, 60s);
  EXPECT_THAT(heard, AllOf(Contains("[sou]1"), Contains(StartsWith("[poi]")),
                           Contains(StartsWith("[msg]cht|"))));
}

TEST_F(CompanyTest, SimulatedPlayersAnswerWhoeverSpeaksToThem) {
  const auto anna = LogIn("Anna");
  Send(anna, "[ctc]c hello everyone");
  EXPECT_THAT(HeardWithin(anna, 5s), Contains(AllOf(StartsWith("[msg]cht|"), HasSubstr("Anna"))));
  Send(anna, "[ctc]tell Marlow are you there?");
  EXPECT_THAT(HeardWithin(anna, 5s), Contains(StartsWith("[msg]tel|Marlow tells you: ")));
}

TEST_F(CompanyTest, NobodyCanLogInAsASimulatedPlayer) {
  for (const char* password : {"", "x"}) {
    const auto thief = Connect();
    Send(thief, std::string("[con]1.6|Marlow|") + password);
    EXPECT_TRUE(IsClosed(thief));
  }
}

TEST_F(CompanyTest, SimulatedPlayersFillTheTeamsOfATournament) {
  const auto anna = LogIn("Anna");
  Send(anna, "[tcr]0|8|16|");
  HeardWithin(anna, 120s);
  Send(anna, "[tjo]Mine|pass|");
  EXPECT_THAT(Answers(anna, "[tst]"), Contains(HasSubstr("tournament game")));
  const auto heard = HeardWithin(anna, 900s);
  EXPECT_THAT(heard, Contains(HasSubstr("Tournament game")));
}

}  // namespace
}  // namespace korvanta::practice

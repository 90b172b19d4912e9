/// Whole evenings of simulated players, by seed, and people who join them.
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

struct Evening {
  explicit Evening(std::uint64_t seed, int players)
      : server(transport, {.seed = seed, .players = players},
               [this](std::string_view line) { Note(std::string(line)); }) {}

  void Note(const std::string& line) {
    journal.push_back(line);
    if (line.find(" begins: ") != std::string::npos) {
      begun = now;
    } else if (const std::size_t end = line.find(" win"); end != std::string::npos) {
      winners.push_back(line.substr(0, end));
      seconds.push_back((now - begun) / 1s);
    }
  }
  void Pass() { server.Tick(now += 100ms); }
  Evening& Play(std::size_t games) {
    while (winners.size() < games && now < 3h) {
      Pass();
    }
    return *this;
  }

  RecordingTransport transport;
  std::vector<std::string> journal;
  std::vector<std::string> winners;
  std::vector<std::int64_t> seconds;  ///< each game's length
  std::chrono::milliseconds now{0};
  std::chrono::milliseconds begun{0};
  Server server;
};

TEST(Evening, EveryGameEndsInAWinAndASeedReplaysThemOnEveryMachine) {
  Evening evening(1, 6);
  evening.Play(10);
  ASSERT_THAT(evening.winners, SizeIs(10));
  EXPECT_THAT(evening.seconds, ElementsAre(392, 334, 348, 318, 362, 392, 423, 362, 378, 370));
  EXPECT_EQ(Evening(1, 6).Play(10).journal, evening.journal);
  for (int players : {2, 3, 12, 2000}) {
    EXPECT_THAT(Evening(3, players).Play(1).winners, SizeIs(1)) << players;
  }
}

/// The newcomer looks at the board every five seconds: Industry first, a little Defense, then
/// Population, and the Golden Knowledge when it can be had. Attacks nobody and has no ally.
TEST(Evening, ACarefulNewcomerWinsAboutOneGameInThreeAgainstSix) {
  constexpr std::pair<int, int> kPlan[] = {{2, 2}, {4, 1}, {3, 2}, {4, 2}, {2, 4}, {3, 4}, {5, 5}};
  int wins = 0;
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    Evening evening(seed, 6);
    int levels[6] = {};
    const auto Send = [&](const std::string& message) {
      evening.server.Received(1, message + kMessageTerminator);
    };
    evening.server.Connected(1);
    Send("[con]1.6\1Newcomer\1secret");
    Send("[jon]");
    for (int step = 1; evening.winners.empty(); ++step) {
      evening.Pass();
      if (step % 50 != 0) {
        continue;
      }
      const std::string heard = std::exchange(evening.transport.sent[1], {});
      for (std::string_view message : Split(heard, kMessageTerminator)) {
        if (message.starts_with("[upg]") || message.starts_with("[att]")) {
          levels[message.at(5) - '0'] = message.at(7) - '0';
        }
      }
      const auto [topic, level] =
          *std::ranges::find_if(kPlan, [&](auto& aim) { return levels[aim.first] < aim.second; });
      Send("[upg]" + std::to_string(topic) + '\1' +
           std::to_string(topic == 5 ? 5 : levels[topic] + 1) + '\1');
    }
    wins += evening.winners.front() == "Newcomer" ? 1 : 0;
  }
  RecordProperty("wins", wins);
  EXPECT_THAT(wins, AllOf(Ge(25), Le(42)));
}

class CompanyTest : public PracticeServerTest {
 protected:
  CompanyTest() : PracticeServerTest({.seed = 2, .players = 6}) { Pass(1s); }

  /// Everything that was heard in the time.
  std::vector<std::string> HeardWithin(std::chrono::seconds time) {
    Heard(anna);
    Pass(time);
    return Heard(anna);
  }

  ConnectionId anna = LogIn("Anna");
};

TEST_F(CompanyTest, APersonFindsAGameTalkAndAnswers) {
  Send(anna, "[jon]");
  EXPECT_THAT(HeardWithin(60s), AllOf(Contains("[sou]1"), Contains(StartsWith("[poi]")),
                                      Contains(StartsWith("[msg]cht|"))));
  Send(anna, "[ctc]c hello everyone");
  EXPECT_THAT(HeardWithin(5s),
              Contains(AllOf(StartsWith("[msg]cht|"), HasSubstr("Anna"), Not(HasSubstr("%")))));
  Send(anna, "[ctc]tell Marlow are you there?");
  EXPECT_THAT(HeardWithin(5s), Contains(StartsWith("[msg]tel|Marlow tells you: ")));
  const auto thief = Connect();
  Send(thief, "[con]1.6|Marlow|");
  EXPECT_TRUE(IsClosed(thief)) << "nobody can log in as a simulated player";
}

TEST_F(CompanyTest, SimulatedPlayersFillTheTeamsOfATournament) {
  Send(anna, "[tcr]0|8|16|");
  HeardWithin(120s);
  EXPECT_THAT(Answers(anna, "[tif]"), Contains("[tif]0|0|3|6"));
  EXPECT_THAT(Answers(anna, "[tst]"), Contains(HasSubstr("will be the tournament game")));
  EXPECT_THAT(HeardWithin(900s), Contains(HasSubstr("Tournament game")));
}

}  // namespace
}  // namespace korvanta::practice

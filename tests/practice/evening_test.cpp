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

/// Evenings, and people who take part in them.
struct Evening {
  explicit Evening(std::uint64_t seed, int players)
      : server(transport, {.seed = seed, .players = players},
               [this](std::string_view line) { Note(std::string(line)); }) {}

  void Note(const std::string& line) {
    journal.push_back(line);
    std::smatch win;
    if (line.find(" begins: ") != std::string::npos) {
      begun = now;
    } else if (std::regex_search(line, win, std::regex("^(.*) wins? game "))) {
      winners.push_back(win[1]);
      seconds.push_back((now - begun) / 1s);
    }
  }
  void Pass() {
    now += 100ms;
    server.Tick(now);
  }
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

TEST(Evening, EveryGameOfSimulatedPlayersEndsInAWinOfItsOwnLength) {
  Evening evening(1, 6);
  evening.Play(10);
  ASSERT_THAT(evening.winners, SizeIs(10));
  EXPECT_THAT(evening.seconds, Each(AllOf(Ge(180), Le(720))));
  EXPECT_GE(std::set<std::string>(evening.winners.begin(), evening.winners.end()).size(), 3U);
}

TEST(Evening, ASeedReplaysTheEvening) {
  const auto journal = Evening(5, 6).Play(4).journal;
  EXPECT_EQ(Evening(5, 6).Play(4).journal, journal);
  EXPECT_NE(Evening(6, 6).Play(4).journal, journal);
}

TEST(Evening, AnyNumberOfSimulatedPlayersFindsItsGame) {
  for (int players : {2, 3, 12, 2000}) {
    EXPECT_THAT(Evening(3, players).Play(1).winners, SizeIs(1)) << players;
  }
}

/// A careful newcomer, who looks at the board every five seconds: Industry first, a little Defense,
/// then Population, and the Golden Knowledge when it can be had. Attacks nobody and has no ally.
class Newcomer {
 public:
  explicit Newcomer(Evening& evening) : evening_(evening) {
    evening_.server.Connected(kConnection);
    Send("[con]1.6\1Newcomer\1secret");
    Send("[jon]");
  }

  void Look() {
    Read();
    const auto wants = [&](int topic, int level) { return levels_[topic] < level; };
    const int topic = wants(2, 2)   ? 2
                      : wants(4, 1) ? 4
                      : wants(3, 2) ? 3
                      : wants(4, 2) ? 4
                      : wants(2, 4) ? 2
                      : wants(3, 4) ? 3
                                    : 5;
    const int level = topic == 5 ? 5 : levels_[topic] + 1;
    Send("[upg]" + std::to_string(topic) + '\1' + std::to_string(level) + '\1');
  }

 private:
  static constexpr ConnectionId kConnection = 1;

  void Send(const std::string& message) {
    evening_.server.Received(kConnection, message + kMessageTerminator);
  }
  /// What has become of the levels.
  void Read() {
    const std::string heard = std::exchange(evening_.transport.sent[kConnection], {});
    for (std::string_view message : Split(heard, kMessageTerminator)) {
      if (message.starts_with("[upg]") || message.starts_with("[att]")) {
        levels_[message.at(5) - '0'] = message.at(7) - '0';
      }
    }
  }

  Evening& evening_;
  int levels_[6] = {};
};

TEST(Evening, ACarefulNewcomerWinsAboutOneGameInThreeAgainstSix) {
  int wins = 0;
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    Evening evening(seed, 6);
    Newcomer newcomer(evening);
    while (evening.winners.empty()) {
      for (int step = 0; step < 50 && evening.winners.empty(); ++step) {
        evening.Pass();
      }
      newcomer.Look();
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
  std::vector<std::string> HeardWithin(ConnectionId connection, std::chrono::seconds time) {
    Heard(connection);
    for (std::chrono::milliseconds passed{0}; passed < time; passed += 100ms) {
      Pass(100ms);
    }
    return Heard(connection);
  }
};

TEST_F(CompanyTest, APersonFindsAGameTalkAndAnswers) {
  const auto anna = LogIn("Anna");
  Send(anna, "[jon]");
  EXPECT_THAT(HeardWithin(anna, 60s), AllOf(Contains("[sou]1"), Contains(StartsWith("[poi]")),
                                            Contains(StartsWith("[msg]cht|"))));
  Send(anna, "[ctc]c hello everyone");
  EXPECT_THAT(HeardWithin(anna, 5s), Contains(AllOf(StartsWith("[msg]cht|"), HasSubstr("Anna"))));
  Send(anna, "[ctc]tell Marlow are you there?");
  EXPECT_THAT(HeardWithin(anna, 5s), Contains(StartsWith("[msg]tel|Marlow tells you: ")));
}

TEST_F(CompanyTest, NobodyCanLogInAsASimulatedPlayer) {
  const auto thief = Connect();
  Send(thief, "[con]1.6|Marlow|");
  EXPECT_TRUE(IsClosed(thief));
}

TEST_F(CompanyTest, SimulatedPlayersFillTheTeamsOfATournament) {
  const auto anna = LogIn("Anna");
  Send(anna, "[tcr]0|8|16|");
  HeardWithin(anna, 120s);
  Send(anna, "[tjo]Mine|pass|");
  EXPECT_THAT(Answers(anna, "[tst]"), Contains(HasSubstr("will be the tournament game")));
  EXPECT_THAT(HeardWithin(anna, 900s), Contains(HasSubstr("Tournament game")));
}

}  // namespace
}  // namespace korvanta::practice

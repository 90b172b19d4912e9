#include "practice/trouble/load.h"

#include "practice/base/player_text.h"
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::IsEmpty;

constexpr ConnectionId kPlayer = 1;
const std::string kLogin = "[con]Anna\00190\0"s;

TEST(Crowd, HoldsUniqueNamesThatNoPlayerCanHave) {
  constexpr int kPlayers = 20'000;
  const std::string records = CrowdRecords(kPlayers, 3);
  std::set<std::string> names;
  for (std::string_view record : Split(records, kRecordSeparator)) {
    const std::string_view name = record.substr(0, record.find(kFieldSeparator));
    EXPECT_FALSE(IsUserName(name));
    EXPECT_EQ(std::ranges::count(record, kFieldSeparator), record.empty() ? 0 : 3);
    names.insert(NameKey(name));
  }
  EXPECT_EQ(names.size(), std::size_t{kPlayers} + 1) << "and none behind the last separator";
  EXPECT_EQ(records, CrowdRecords(kPlayers, 3));
  EXPECT_NE(records, CrowdRecords(kPlayers, 4));

  RecordingTransport network;
  Load load(network, {.seed = 3, .crowd = 2});
  load.Send(kPlayer, "[log]Anna\0[onl]Anna\0011\0011\0010\0[nws]no [onl] here\0"s);
  EXPECT_EQ(network.sent[kPlayer], "[log]Anna\0[onl]"s + CrowdRecords(2, 3) +
                                       "Anna\0011\0011\0010\0[nws]no [onl] here\0"s);
}

TEST(Flood, BringsItsRateToThoseWhoAreLoggedInUntilTheyGo) {
  RecordingTransport network;
  Load load(network, {.seed = 3, .lines_per_second = 25});
  load.Tick(1s);
  load.Send(kPlayer, kLogin);
  load.Send(kPlayer + 1, "[msg]adm\1Server: no\1False\0"s);
  const auto LinesUntil = [&](std::chrono::milliseconds now) {
    network.sent.clear();
    load.Tick(now);
    EXPECT_THAT(network.sent[kPlayer + 1], IsEmpty());
    return std::ranges::count(network.sent[kPlayer], kMessageTerminator);
  };
  EXPECT_NEAR(static_cast<double>(LinesUntil(1500ms) + LinesUntil(2s)), 25, 1);
  EXPECT_TRUE(network.sent[kPlayer].starts_with("[msg]cht\1"));
  EXPECT_NEAR(static_cast<double>(LinesUntil(60s)), 25, 1) << "after a hold-up";
  load.Vanished(kPlayer);
  EXPECT_EQ(LinesUntil(61s), 0);
}

}  // namespace
}  // namespace korvanta::practice

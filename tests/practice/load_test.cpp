#include "practice/trouble/load.h"

#include <set>
#include <vector>

#include "practice/wire/player_text.h"
#include "tests/practice/practice_fixture.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::IsEmpty;

constexpr ConnectionId kPlayer = 1;
constexpr ConnectionId kStranger = 2;
const std::string kLogin = "[con]Anna\00190\0"s;

std::ptrdiff_t Lines(const std::string& bytes) {
  return std::count(bytes.begin(), bytes.end(), kMessageTerminator);
}

TEST(Crowd, HoldsUniqueNamesThatNoPlayerCanHaveAndReadableNumbers) {
  constexpr int kPlayers = 20'000;
  const std::string records = CrowdRecords(kPlayers, 3);
  std::set<std::string> names;
  for (std::string_view record : Split(records, kRecordSeparator)) {
    if (record.empty()) {
      continue;  // behind the last separator
    }
    std::vector<std::string> fields;
    for (std::string_view field : Split(record, kFieldSeparator)) {
      fields.emplace_back(field);
    }
    ASSERT_EQ(fields.size(), 4U);
    EXPECT_TRUE(names.insert(NameKey(fields[0])).second) << fields[0];
    EXPECT_FALSE(IsUserName(fields[0]));
    EXPECT_LE(fields[0].size(), kLongestName);
    EXPECT_TRUE(NumberWithin(fields[1], 1, 8)) << fields[1];
    EXPECT_TRUE(NumberWithin(fields[2], 1, 999)) << fields[2];
    EXPECT_TRUE(NumberWithin(fields[3], 0, 1)) << fields[3];
  }
  EXPECT_EQ(names.size(), std::size_t{kPlayers});
  EXPECT_EQ(records, CrowdRecords(kPlayers, 3));
  EXPECT_NE(records, CrowdRecords(kPlayers, 4));
}

TEST(Crowd, StandsInOnlineListsBeforeThePlayersAndInNothingElse) {
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
  load.Send(kStranger, "[msg]adm\1Server: no\1False\0"s);
  network.sent.clear();
  for (auto now = 1100ms; now <= 3s; now += 100ms) {
    load.Tick(now);
  }
  EXPECT_NEAR(static_cast<double>(Lines(network.sent[kPlayer])), 50, 1);
  EXPECT_THAT(network.sent[kStranger], IsEmpty());
  EXPECT_TRUE(network.sent[kPlayer].starts_with("[msg]cht\1"));

  network.sent.clear();
  load.Tick(60s);
  EXPECT_NEAR(static_cast<double>(Lines(network.sent[kPlayer])), 25, 1) << "after a hold-up";
  network.sent.clear();
  load.Vanished(kPlayer);
  load.Tick(61s);
  EXPECT_THAT(network.sent, IsEmpty());
}

TEST(Flood, WithoutARateGrowsOnlyWhereThereIsRoomForIt) {
  RecordingTransport network;
  Load load(network, {.seed = 3, .is_unbounded = true});
  load.Refill(kPlayer);
  EXPECT_THAT(network.sent, IsEmpty()) << "nobody is logged in";
  load.Send(kPlayer, kLogin);
  const std::size_t first = network.sent[kPlayer].size();
  EXPECT_GE(first, Load::kRefill);
  load.Tick(10s);
  EXPECT_EQ(network.sent[kPlayer].size(), first);
  load.Refill(kPlayer);
  EXPECT_GE(network.sent[kPlayer].size(), first + Load::kRefill);
  EXPECT_LE(network.sent[kPlayer].size(), first + Load::kRefill + 1000);
  load.Close(kPlayer);
  load.Refill(kPlayer);  // RecordingTransport objects to words after the end
}

TEST(Chatter, SaysTheSameForTheSameSeed) {
  Chatter one(5);
  Chatter same(5);
  Chatter other(6);
  const std::string first = one.NextLine();
  EXPECT_EQ(first, same.NextLine());
  EXPECT_NE(first, one.NextLine());
  EXPECT_NE(first, other.NextLine());
}

}  // namespace
}  // namespace korvanta::practice

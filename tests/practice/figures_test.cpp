#include "practice/players/figures.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "practice/wire/server_messages.h"
#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

TEST(Figures, AwardsAreReachedAtTheirThresholds) {
  EXPECT_THAT(AwardCodes({.score = 999}), ElementsAre(24));
  EXPECT_THAT(AwardCodes({.score = 1'000}), ElementsAre(21));
  EXPECT_THAT(AwardCodes({.score = 25'000}), ElementsAre(22, 6, 21));
  EXPECT_THAT(AwardCodes({.score = 1'000'000}), ElementsAre(1, 2, 3, 4, 5, 22, 6, 21));
  EXPECT_THAT(AwardCodes({.wins = 1}), ElementsAre(11));
  EXPECT_THAT(AwardCodes({.wins = 1'000}), ElementsAre(7, 8, 9, 10, 11));
  EXPECT_THAT(AwardCodes({.research_destroyed = 49, .blocks = 24}), ElementsAre(24));
  EXPECT_THAT(AwardCodes({.research_destroyed = 5'000}), ElementsAre(12, 13, 14, 15, 16));
  EXPECT_THAT(AwardCodes({.blocks = 1'000}), ElementsAre(17, 18, 19, 23, 20));
  EXPECT_THAT(AwardCodes({.wins = 10, .score = 1'500, .blocks = 50}),
              ElementsAre(21, 10, 11, 23, 20));
}

TEST(Figures, StatisticsHoldEachFigureInItsField) {
  std::string readable = messages::Statistics({"Anna",
                                               "None",
                                               12,
                                               {.wins = 1,
                                                .games_played = 2,
                                                .research = 3,
                                                .research_lost = 4,
                                                .research_destroyed = 5,
                                                .alliance_screw_overs = 6,
                                                .score = 7'000,
                                                .blocks = 8,
                                                .alliance_wins = 9}});
  std::replace(readable.begin(), readable.end(), kFieldSeparator, '|');
  std::replace(readable.begin(), readable.end(), kRecordSeparator, '&');
  EXPECT_EQ(readable, "[bre]Anna|None|12|1|2|3|4|5|6|7000|8|9|21&11\0"s);
}

}  // namespace
}  // namespace korvanta::practice

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "practice/players/accounts.h"

namespace korvanta::practice {
namespace {

TEST(Figures, AwardsAreReachedAtTheirThresholds) {
  const std::pair<Figures, std::vector<int>> cases[] = {
      {{.score = 999}, {24}},
      {{.score = 1'000}, {21}},
      {{.score = 25'000}, {22, 6, 21}},
      {{.score = 1'000'000}, {1, 2, 3, 4, 5, 22, 6, 21}},
      {{.wins = 1}, {11}},
      {{.wins = 1'000}, {7, 8, 9, 10, 11}},
      {{.research_destroyed = 49, .blocks = 24}, {24}},
      {{.research_destroyed = 5'000}, {12, 13, 14, 15, 16}},
      {{.blocks = 1'000}, {17, 18, 19, 23, 20}},
      {{.wins = 10, .score = 1'500, .blocks = 50}, {21, 10, 11, 23, 20}},
  };
  for (const auto& [figures, codes] : cases) {
    EXPECT_EQ(figures.AwardCodes(), codes);
  }
}

}  // namespace
}  // namespace korvanta::practice

/// The rules of a game: what moves cost and do, which are refused, and who wins.
#include "practice/game/game.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvanta::practice {
namespace {

using testing::UnorderedElementsAre;

class GameTest : public testing::Test {
 protected:
  Dice dice{1};
  Account accounts[3] = {{.name = "Anna"}, {.name = "Bobby"}, {.name = "Carol"}};
  Game game{dice};
  Contender& anna = game.Enter(accounts[0]);
  Contender& bobby = game.Enter(accounts[1]);
};

TEST_F(GameTest, AttacksTakeOneLevelOnceATickAndAreBlockedByDefense) {
  anna.LevelOf(TopicCode::Military) = 1;
  bobby.LevelOf(TopicCode::Defense) = 4;
  Game::AttackResult attack;
  int blocks = -1;
  do {
    game.Tick();
    anna.points = Game::kAttackCost;
    attack = game.Attack(anna, bobby);
    ++blocks;
  } while (attack.was_blocked);
  EXPECT_EQ(anna.points, 0);
  EXPECT_EQ(accounts[0].figures.research_destroyed, 1);
  EXPECT_EQ(accounts[0].figures.score, 15);
  EXPECT_EQ(accounts[1].figures.research_lost, 1);
  EXPECT_GT(blocks, 0);
  EXPECT_EQ(accounts[1].figures.blocks, blocks);
  EXPECT_EQ(accounts[1].figures.score, 10 * blocks);
  EXPECT_EQ(game.Attack(anna, bobby).refusal, Refusal::AttackedAlready);
  Contender& carol = game.Enter(accounts[2]);
  carol.LevelOf(TopicCode::Military) = 1;
  EXPECT_EQ(game.Attack(carol, bobby).refusal, Refusal::SetBackAlready);
}

TEST_F(GameTest, AlliesWinTogetherAndBetrayalIsNeverBlocked) {
  Contender& carol = game.Enter(accounts[2]);
  Game::Propose(anna, bobby);
  EXPECT_EQ(anna.ally, nullptr) << "one side alone";
  Game::Propose(bobby, anna);
  EXPECT_THAT(game.WinnersWith(bobby), UnorderedElementsAre(&anna, &bobby));
  EXPECT_THAT(game.WinnersWith(carol), UnorderedElementsAre(&carol));

  anna.LevelOf(TopicCode::Military) = 1;
  bobby.LevelOf(TopicCode::Defense) = 4;
  EXPECT_TRUE(game.Attack(anna, bobby).broke_alliance);
  EXPECT_EQ(bobby.LevelOf(TopicCode::Defense), 3);
  EXPECT_EQ(accounts[0].figures.alliance_screw_overs, 1);
  EXPECT_EQ(bobby.ally, nullptr);

  Game::Propose(carol, anna);
  Game::Propose(anna, carol);
  game.Leave(carol, false);
  EXPECT_EQ(anna.ally, nullptr);
}

TEST(Figures, AwardsAreReachedAtTheirThresholds) {
  const std::pair<Figures, std::vector<int>> cases[] = {
      {{.score = 999}, {24}},
      {{.score = 1'000'000}, {1, 2, 3, 4, 5, 22, 6, 21}},
      {{.wins = 1'000}, {7, 8, 9, 10, 11}},
      {{.research_destroyed = 49, .blocks = 24}, {24}},
      {{.research_destroyed = 5'000}, {12, 13, 14, 15, 16}},
      {{.blocks = 1'000}, {17, 18, 19, 23, 20}},
      {{.wins = 10, .score = 25'000, .blocks = 50}, {22, 6, 21, 10, 11, 23, 20}},
  };
  for (const auto& [figures, codes] : cases) {
    EXPECT_EQ(figures.AwardCodes(), codes);
  }
}

}  // namespace
}  // namespace korvanta::practice

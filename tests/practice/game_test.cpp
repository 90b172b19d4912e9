/// The rules of a game: what moves cost and do, which are refused, and who wins.
#include "practice/game/game.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvanta::practice {
namespace {

using testing::UnorderedElementsAre;

class GameTest : public testing::Test {
 protected:
  /// Of attacks over many games between two players with these levels.
  double ShareOfBlocks(int military, int defense) {
    int blocks = 0;
    for (int i = 0; i < 1000; ++i) {
      anna.LevelOf(TopicCode::Military) = military;
      bobby.LevelOf(TopicCode::Defense) = defense;
      bobby.LevelOf(TopicCode::Industry) = 4;
      anna.points = Game::kAttackCost;
      game.Tick();
      const Game::AttackResult attack = game.Attack(anna, bobby);
      EXPECT_EQ(attack.refusal, Refusal::None);
      blocks += attack.was_blocked ? 1 : 0;
    }
    return blocks / 1000.0;
  }

  Dice dice{1};
  Account accounts[4] = {{.name = "Anna"}, {.name = "Bobby"}, {.name = "Carol"}, {.name = "David"}};
  Game game{dice};
  Contender& anna = game.Enter(accounts[0]);
  Contender& bobby = game.Enter(accounts[1]);
};

TEST_F(GameTest, LevelsAreBoughtOneByOneAndTheGoldenKnowledgeLast) {
  using enum TopicCode;
  const struct {
    TopicCode topic;
    int level;
    int points;  ///< before
    int cost;
    Refusal refusal = Refusal::None;
  } tries[] = {
      {Industry, 2, 99, 0, Refusal::LevelOutOfOrder},
      {Industry, 1, 3, 0, Refusal::ResearchTooDear},
      {Industry, 1, 4, 4},
      {Industry, 1, 99, 0, Refusal::LevelReachedAlready},
      {Industry, 2, 99, 8},
      {Industry, 3, 99, 14},
      {Industry, 4, 99, 22},
      {Population, 1, 99, 4},
      {Population, 2, 99, 8},   // 90 % of 8, rounded up
      {Population, 3, 99, 12},  // 80 % of 14, rounded up
      {GoldenKnowledge, 5, 99, 0, Refusal::GoldenKnowledgeNeedsTopics},
      {Population, 4, 99, 16},  // 70 % of 22, rounded up
      {GoldenKnowledge, 5, 23, 0, Refusal::ResearchTooDear},
      {GoldenKnowledge, 5, 24, 24},
  };
  for (const auto& c : tries) {
    SCOPED_TRACE(std::string(TextOf(c.topic).name) + std::to_string(c.level));
    EXPECT_EQ(game.IsOpen(), &c < std::end(tries) - 2);
    anna.points = c.points;
    EXPECT_EQ(game.Research(anna, c.topic, c.level), c.refusal);
    EXPECT_EQ(c.points - anna.points, c.cost);
  }
  EXPECT_EQ(accounts[0].figures.research, 9);
  EXPECT_EQ(accounts[0].figures.score, 250);
}

TEST_F(GameTest, TicksPayByIndustryAndRiseSoThatEveryGameEnds) {
  bobby.LevelOf(TopicCode::Industry) = 3;
  for (int tick = 1; tick <= 24; ++tick) {
    const int before = bobby.points;
    game.Tick();
    EXPECT_EQ(bobby.points - before, tick <= 12 ? 6 : 7) << tick;
  }
}

TEST_F(GameTest, AttacksTakeOneLevelOnceATickAndAreBlockedByDefense) {
  const auto Try = [&](int military, int population, int points) {
    anna.LevelOf(TopicCode::Military) = military;
    bobby.LevelOf(TopicCode::Population) = population;
    anna.points = points;
    return game.Attack(anna, bobby).refusal;
  };
  EXPECT_EQ(Try(0, 3, 3), Refusal::AttackNeedsMilitary);
  EXPECT_EQ(Try(4, 0, 3), Refusal::NothingToDestroy);
  EXPECT_EQ(Try(4, 3, 2), Refusal::AttackTooDear);

  Game::AttackResult attack;
  do {
    game.Tick();
    anna.points = Game::kAttackCost;
    attack = game.Attack(anna, bobby);
  } while (attack.was_blocked);
  EXPECT_EQ(anna.points, 0);
  EXPECT_EQ(attack.topic, TopicCode::Population);
  EXPECT_EQ(attack.level, 2);
  EXPECT_EQ(bobby.LevelOf(TopicCode::Population), 2);
  EXPECT_EQ(accounts[0].figures.research_destroyed, 1);
  EXPECT_EQ(accounts[1].figures.research_lost, 1);
  EXPECT_EQ(game.Attack(anna, bobby).refusal, Refusal::AttackedAlready);
  Contender& carol = game.Enter(accounts[2]);
  carol.LevelOf(TopicCode::Military) = 1;
  EXPECT_EQ(game.Attack(carol, bobby).refusal, Refusal::SetBackAlready);

  EXPECT_NEAR(ShareOfBlocks(1, 0), 0.10, 0.04);
  EXPECT_NEAR(ShareOfBlocks(1, 4), 0.70, 0.05);
  EXPECT_NEAR(ShareOfBlocks(4, 4), 0.40, 0.05);
  EXPECT_NEAR(ShareOfBlocks(4, 0), 0.05, 0.03);
  EXPECT_GT(accounts[1].figures.blocks, 0);
}

TEST_F(GameTest, AlliesWinTogetherAndBetrayalIsNeverBlocked) {
  Contender& carol = game.Enter(accounts[2]);
  Game::Propose(anna, bobby);
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

TEST_F(GameTest, ATeamIsOneSide) {
  Contender& carol = game.Enter(accounts[2], "Foxes");
  Contender& david = game.Enter(accounts[3], "Foxes");
  carol.LevelOf(TopicCode::Military) = 1;
  EXPECT_EQ(game.Attack(carol, david).refusal, Refusal::Teammate);
  EXPECT_EQ(Game::Propose(carol, anna), Refusal::TeamIsAlliance);
  EXPECT_THAT(game.WinnersWith(david), UnorderedElementsAre(&carol, &david));
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

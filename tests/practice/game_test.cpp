/// The rules of a game: what moves cost and do, which are refused, and who wins.
#include "practice/game/game.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvanta::practice {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class GameTest : public testing::Test {
 protected:
  void Give(Contender& contender, Topic topic, int level) { contender.LevelOf(topic) = level; }
  /// Attacks over many games between two players with these levels.
  double ShareOfBlocks(int military, int defense) {
    int blocks = 0;
    for (int i = 0; i < 1000; ++i) {
      Give(anna, Topic::Military, military);
      Give(bobby, Topic::Defense, defense);
      Give(bobby, Topic::Industry, 4);
      anna.points = Game::kAttackCost;
      game.Tick();
      const Game::Attack attack = game.DoAttack(anna, bobby);
      EXPECT_THAT(attack.refusal, IsEmpty());
      blocks += attack.was_blocked;
    }
    return blocks / 1000.0;
  }

  std::mt19937_64 dice{1};
  Account anna_account{"Anna", "secret", 1, 1, {}};
  Account bobby_account{"Bobby", "secret", 1, 1, {}};
  Account carol_account{"Carol", "secret", 1, 1, {}};
  Game game{dice};
  Contender& anna = game.Enter(anna_account);
  Contender& bobby = game.Enter(bobby_account);
};

TEST_F(GameTest, LevelsAreBoughtOneByOneAndTheGoldenKnowledgeWins) {
  anna.points = 1000;
  struct Try {
    Topic topic;
    int level;
    std::string refusal;
    int cost;
  };
  const std::vector<Try> tries = {
      {Topic::Industry, 2, "next is Industry level 1", 0},
      {Topic::Industry, 1, "", 4},
      {Topic::Industry, 1, "already", 0},
      {Topic::Industry, 2, "", 8},
      {Topic::Industry, 3, "", 14},
      {Topic::GoldenKnowledge, 5, "two topics at level 4", 0},
      {Topic::Industry, 4, "", 22},
      {Topic::Population, 1, "", 4},
      {Topic::Population, 2, "", 8},   // 90 % of 8, rounded up
      {Topic::Population, 3, "", 12},  // 80 % of 14, rounded up
      {Topic::GoldenKnowledge, 5, "two topics at level 4", 0},
      {Topic::Population, 4, "", 16},  // 70 % of 22, rounded up
      {Topic::Population, 4, "already", 0},
  };
  for (const Try& one : tries) {
    const int before = anna.points;
    const Game::Research research = game.DoResearch(anna, one.topic, one.level);
    EXPECT_THAT(research.refusal, HasSubstr(one.refusal));
    EXPECT_EQ(research.refusal.empty(), one.refusal.empty()) << research.refusal;
    EXPECT_EQ(before - anna.points, one.cost) << TopicName(one.topic) << one.level;
    EXPECT_FALSE(research.wins);
  }
  EXPECT_FALSE(game.IsOpen());
  anna.points = 23;
  EXPECT_THAT(game.DoResearch(anna, Topic::GoldenKnowledge, 5).refusal,
              HasSubstr("costs 24 points and you have 23. You get 7"));
  anna.points = 24;
  EXPECT_TRUE(game.DoResearch(anna, Topic::GoldenKnowledge, 5).wins);
  EXPECT_EQ(anna.points, 0);
}

TEST_F(GameTest, TicksPayByIndustryAndRiseSoThatEveryGameEnds) {
  Give(bobby, Topic::Industry, 3);
  const int first = anna.points;
  game.Tick();
  EXPECT_EQ(anna.points, first + 3);
  EXPECT_EQ(bobby.points, first + 6);
  for (int i = 0; i < 24; ++i) {
    game.Tick();
  }
  EXPECT_EQ(game.Income(anna), 5);
}

TEST_F(GameTest, WhoeverComesLateGetsPointsToCatchUp) {
  for (int i = 0; i < 10; ++i) {
    game.Tick();
  }
  anna.points = 2;
  Give(anna, Topic::Military, 3);  // 4 + 8 + 14
  bobby.points = 12;
  EXPECT_EQ(game.Enter(carol_account).points, (28 + 12) / 2 * 8 / 10);
}

TEST_F(GameTest, AttacksTakeOneLevelOnceATickAndAreBlockedByDefense) {
  const auto refusal = [&] { return game.DoAttack(anna, bobby).refusal; };
  EXPECT_THAT(refusal(), HasSubstr("Military level 1"));
  Give(anna, Topic::Military, 4);
  EXPECT_THAT(refusal(), HasSubstr("nothing"));
  Give(bobby, Topic::Population, 3);
  anna.points = 2;
  EXPECT_THAT(refusal(), HasSubstr("costs 3 points"));

  anna.points = 100;
  Game::Attack attack;
  do {
    game.Tick();
    attack = game.DoAttack(anna, bobby);
  } while (attack.was_blocked);
  EXPECT_EQ(attack.topic, Topic::Population);
  EXPECT_EQ(attack.level, 2);
  EXPECT_EQ(bobby.LevelOf(Topic::Population), 2);
  EXPECT_EQ(anna_account.figures.research_destroyed, 1);
  EXPECT_EQ(bobby_account.figures.research_lost, 1);
  EXPECT_THAT(refusal(), HasSubstr("attacked already"));
  Contender& carol = game.Enter(carol_account);
  Give(carol, Topic::Military, 1);
  EXPECT_THAT(game.DoAttack(carol, bobby).refusal, HasSubstr("set back already"));

  EXPECT_NEAR(ShareOfBlocks(1, 0), 0.10, 0.04);
  EXPECT_NEAR(ShareOfBlocks(1, 4), 0.70, 0.05);
  EXPECT_NEAR(ShareOfBlocks(4, 4), 0.40, 0.05);
  EXPECT_NEAR(ShareOfBlocks(4, 0), 0.05, 0.03);
  EXPECT_GT(bobby_account.figures.blocks, 0);
}

TEST_F(GameTest, AlliesWinTogetherAndBetrayalIsNeverBlocked) {
  Contender& carol = game.Enter(carol_account);
  EXPECT_FALSE(Game::Propose(anna, bobby).is_formed);
  EXPECT_FALSE(Game::Propose(anna, bobby).is_formed) << "one side alone";
  EXPECT_TRUE(Game::Propose(bobby, anna).is_formed);
  EXPECT_THAT(Game::Propose(carol, anna).refusal, HasSubstr("another ally"));
  EXPECT_THAT(Game::Propose(anna, carol).refusal, HasSubstr("allied with Bobby"));
  EXPECT_THAT(Game::Propose(anna, bobby).refusal, HasSubstr("already"));
  EXPECT_THAT(game.WinnersWith(bobby), UnorderedElementsAre(&anna, &bobby));
  EXPECT_THAT(game.WinnersWith(carol), UnorderedElementsAre(&carol));

  Give(anna, Topic::Military, 1);
  Give(bobby, Topic::Defense, 4);
  const Game::Attack attack = game.DoAttack(anna, bobby);
  EXPECT_TRUE(attack.broke_alliance);
  EXPECT_EQ(bobby.LevelOf(Topic::Defense), 3);
  EXPECT_EQ(anna_account.figures.alliance_screw_overs, 1);
  EXPECT_THAT(game.WinnersWith(bobby), UnorderedElementsAre(&bobby));
  EXPECT_EQ(bobby.ally, nullptr);

  Game::Propose(carol, anna);
  Game::Propose(anna, carol);
  game.Leave(carol);
  EXPECT_EQ(anna.ally, nullptr);
}

TEST_F(GameTest, ATeamIsOneSide) {
  Account david_account{"David", "secret", 1, 1, {}};
  Contender& carol = game.Enter(carol_account, "Foxes");
  Contender& david = game.Enter(david_account, "Foxes");
  Give(carol, Topic::Military, 1);
  EXPECT_THAT(game.DoAttack(carol, david).refusal, HasSubstr("your team"));
  EXPECT_THAT(Game::Propose(carol, anna).refusal, HasSubstr("tournament"));
  EXPECT_THAT(game.WinnersWith(david), UnorderedElementsAre(&carol, &david));
}

}  // namespace
}  // namespace korvanta::practice

#include "board/research_board.h"

#include <array>
#include <cstdlib>
#include <gmock/gmock.h>
#include <limits>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ResearchBoardTest : public testing::Test {
 protected:
  ResearchBoardTest() {
    board_.on_changed = [this](BoardPart part) { changed_.push_back(part); };
  }

  /// A row as its four frames, a space, and its four lines: 4 or 1 each.
  std::string Row(std::size_t row) const {
    std::string text;
    for (int level = 1; level <= 4; ++level) {
      text += std::to_string(board_.FrameWidth(row, level));
    }
    text += ' ';
    for (int level = 1; level <= 4; ++level) {
      text += std::to_string(board_.LineWidth(row, level));
    }
    return text;
  }
  std::vector<std::string> Rows() const { return {Row(0), Row(1), Row(2), Row(3)}; }
  std::vector<BoardPart> TakeChanged() { return std::exchange(changed_, {}); }

  fakes::FakeTimers timers_;
  GameClock clock_{timers_};
  ResearchBoard board_{clock_};
  std::vector<BoardPart> changed_;
};

constexpr const char* kPlain = "1111 1111";
constexpr const char* kAll = "4444 4444";

TEST_F(ResearchBoardTest, EveryLevelOfEveryRowWhateverItWasBefore) {
  const std::array<const char*, 5> by_level = {kPlain, "4111 1111", "4411 4111", "4441 4411", kAll};
  for (std::int16_t topic = 1; topic <= 4; ++topic) {
    for (std::int16_t before = 0; before <= 4; ++before) {
      for (std::int16_t level = 0; level <= 4; ++level) {
        modLight::ResetBoard(board_);
        modLight::LightTopic(board_, static_cast<TopicCode>(topic), before);
        modLight::LightTopic(board_, static_cast<TopicCode>(topic), level);
        std::vector<std::string> expected(4, kPlain);
        expected[static_cast<std::size_t>(topic - 1)] = by_level[static_cast<std::size_t>(level)];
        EXPECT_EQ(Rows(), expected) << topic << ": " << before << " to " << level;
      }
    }
  }
}

TEST_F(ResearchBoardTest, ValuesOutOfRange) {
  struct Case {
    std::int16_t topic, level;
    std::size_t row;
    const char* shown;
  };
  const std::vector<Case> cases = {{1, 5, 0, kAll}, {2, 32767, 1, kAll},    {3, 5, 2, "4444 4441"},
                                   {4, 9, 3, kAll}, {1, -1, 0, kPlain},     {5, 2, 3, "4411 4111"},
                                   {0, 4, 3, kAll}, {-7, 1, 3, "4111 1111"}};
  for (const Case& each : cases) {
    modLight::ResetBoard(board_);
    modLight::LightTopic(board_, static_cast<TopicCode>(each.topic), each.level);
    std::vector<std::string> expected(4, kPlain);
    expected[each.row] = each.shown;
    EXPECT_EQ(Rows(), expected) << each.topic << ", " << each.level;
  }
}

TEST_F(ResearchBoardTest, ResetClearsTheBoardAndFreezesTheClock) {
  for (std::int16_t topic = 1; topic <= 4; ++topic) {
    modLight::LightTopic(board_, static_cast<TopicCode>(topic), 4);
  }
  board_.ShowResearchPoints(12);
  clock_.StartGameClock(90);
  timers_.Tick(1000ms);

  modLight::ResetBoard(board_);
  EXPECT_THAT(Rows(), testing::Each(kPlain));
  EXPECT_EQ(board_.Research(), "Research Points: 0");
  timers_.Tick(1000ms);
  EXPECT_EQ(board_.TickTime(), "Tick Time - 1:29");
  EXPECT_EQ(clock_.TickSecondsLeft(), 89);
  clock_.StartGameClock(120);
  timers_.Tick(1000ms);
  EXPECT_EQ(board_.TickTime(), "Tick Time - 1:59");
}

TEST_F(ResearchBoardTest, TellsEachPartThatChangedAndNothingElse) {
  for (int times = 0; times < 2; ++times) {
    modLight::LightTopic(board_, TopicCode::Population, 2);
    board_.ShowResearchPoints(5);
  }
  EXPECT_THAT(TakeChanged(), ElementsAre(BoardPart::Population, BoardPart::Research));
  clock_.StartGameClock(10);
  timers_.Tick(1000ms);
  EXPECT_THAT(TakeChanged(), ElementsAre(BoardPart::TickTime));
  modLight::ResetBoard(board_);
  EXPECT_THAT(TakeChanged(), ElementsAre(BoardPart::Population, BoardPart::Research));
}

TEST_F(ResearchBoardTest, PointsArePlainDecimalText) {
  const std::vector<std::pair<double, std::string>> cases = {
      {12, "12"},
      {2.50, "2.5"},
      {-3.25, "-3.25"},
      {-0.0, "0"},
      {10, "10"},
      {1e-7, "0.0000001"},
      {1e23, "1" + std::string(23, '0')},
      {-1.25e308, "-125" + std::string(306, '0')},
      {std::numeric_limits<double>::denorm_min(), "0." + std::string(323, '0') + "5"},
  };
  for (const auto& [points, text] : cases) {
    board_.ShowResearchPoints(points);
    EXPECT_EQ(board_.Research(), "Research Points: " + text);
  }
}

}  // namespace
}  // namespace korvanta

/// The research board, with the game clock that it shows.
#include "board/research_board.h"

#include <gmock/gmock.h>
#include <limits>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

struct ResearchBoardTest : testing::Test {
  ResearchBoardTest() {
    board_.on_changed = [this](BoardPart part) { changed_.push_back(part); };
  }

  /// A row as its four frames, a space, and its four lines: 4 or 1 each.
  std::string Row(std::size_t row) const {
    std::string frames;
    std::string lines;
    for (int level = 1; level <= 4; ++level) {
      frames += std::to_string(board_.FrameWidth(row, level));
      lines += std::to_string(board_.LineWidth(row, level));
    }
    return frames + " " + lines;
  }
  std::vector<std::string> Rows() const { return {Row(0), Row(1), Row(2), Row(3)}; }

  /// The text of the clock after that many more seconds.
  std::string After(int seconds) {
    for (int i = 0; i < seconds; ++i) {
      timers_.Tick(std::chrono::seconds(1));
    }
    return board_.TickTime();
  }

  fakes::FakeTimers timers_;
  GameClock clock_{timers_};
  ResearchBoard board_{clock_};
  std::vector<BoardPart> changed_;
};

constexpr const char* kPlain = "1111 1111";
constexpr const char* kAll = "4444 4444";

TEST_F(ResearchBoardTest, ALevelDecidesOnTheWholeRowWhateverItWasBefore) {
  const struct {
    std::int16_t topic, level;
    std::size_t row;
    const char* shown;
  } cases[] = {{1, 0, 0, kPlain},      {1, 1, 0, "4111 1111"}, {2, 2, 1, "4411 4111"},
               {3, 3, 2, "4441 4411"}, {3, 4, 2, kAll},        {4, 4, 3, kAll},
               {1, 5, 0, kAll},        {2, 32767, 1, kAll},    {3, 5, 2, "4444 4441"},
               {5, 2, 3, "4411 4111"}, {0, 4, 3, kAll},        {-7, 1, 3, "4111 1111"},
               {4, -1, 3, kPlain}};
  for (const auto& [topic, level, row, shown] : cases) {
    for (std::int16_t before = 0; before <= 4; ++before) {
      modLight::ResetBoard(board_);
      modLight::LightTopic(board_, static_cast<TopicCode>(topic), before);
      modLight::LightTopic(board_, static_cast<TopicCode>(topic), level);
      std::vector<std::string> expected(4, kPlain);
      expected[row] = shown;
      EXPECT_EQ(Rows(), expected) << topic << ": " << before << " to " << level;
    }
  }
}

TEST_F(ResearchBoardTest, AResetFreezesTheClockAndEachChangeIsNotifiedOnce) {
  for (int times = 0; times < 2; ++times) {
    modLight::LightTopic(board_, TopicCode::Population, 2);
    board_.ShowResearchPoints(5);
  }
  clock_.StartGameClock(1);
  After(2);
  clock_.StartGameClock(2);
  After(1);
  modLight::ResetBoard(board_);
  using enum BoardPart;
  EXPECT_EQ(board_.Research(), "Research Points: 0");
  EXPECT_EQ(After(1), "Tick Time - 0:01");
  EXPECT_THAT(changed_, testing::ElementsAre(Population, Research, TickTime, Population, Research));
}

TEST_F(ResearchBoardTest, PointsArePlainDecimalText) {
  const std::pair<double, std::string> cases[] = {
      {10, "10"},
      {12.5, "12.5"},
      {-3.25, "-3.25"},
      {-0.0, "0"},
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

TEST_F(ResearchBoardTest, TheClockCountsDownAndStopsOneTickAfterZero) {
  EXPECT_EQ(After(0), "Tick Time - 0:00");
  const struct {
    std::int16_t start;
    int ticks;
    std::string text;
    bool counts;
  } cases[] = {{90, 81, "0:09", true}, {90, 90, "0:00", true},     {90, 91, "0:00", false},
               {1, 1, "0:00", true},   {11, 1, "0:10", true},      {60, 1, "0:59", true},
               {61, 1, "1:00", true},  {7201, 1, "120:00", true},  {0, 1, "0:00", false},
               {-1, 1, "0:00", false}, {32767, 1, "546:06", true}, {-32768, 1, "0:00", false}};
  for (const auto& [start, ticks, text, counts] : cases) {
    clock_.StartGameClock(500);
    EXPECT_EQ(After(1), "Tick Time - 8:19");
    clock_.StartGameClock(start);
    EXPECT_EQ(After(0), "Tick Time - 8:19") << "only a tick changes the text";
    EXPECT_EQ(After(ticks), "Tick Time - " + text) << start;
    EXPECT_EQ(timers_.made.front().second->enabled, counts) << start << " after " << ticks;
  }
}

}  // namespace
}  // namespace korvanta

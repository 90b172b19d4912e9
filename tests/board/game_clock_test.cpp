#include "board/game_clock.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;

class GameClockTest : public testing::Test {
 protected:
  GameClockTest() {
    clock_.on_changed = [this] { ++changes_; };
  }

  /// The text behind "Tick Time - " after that many more seconds.
  std::string After(int seconds) {
    for (int i = 0; i < seconds; ++i) {
      timers_.Tick(1000ms);
    }
    EXPECT_EQ(clock_.TickTime().substr(0, 12), "Tick Time - ");
    return clock_.TickTime().substr(12);
  }

  fakes::FakeTimers timers_;
  GameClock clock_{timers_};
  int changes_ = 0;
};

TEST_F(GameClockTest, CountsDownAndStopsOneTickAfterZero) {
  EXPECT_EQ(After(0), "0:00");
  clock_.StartGameClock(90);
  EXPECT_EQ(After(0), "0:00") << "only a tick changes the text";
  EXPECT_EQ(After(1), "1:29");
  EXPECT_EQ(After(80), "0:09");
  EXPECT_EQ(After(9), "0:00");
  EXPECT_TRUE(clock_.IsCounting());
  EXPECT_EQ(After(1), "0:00");
  EXPECT_FALSE(clock_.IsCounting());
  EXPECT_EQ(changes_, 90) << "the last tick changes nothing";
}

TEST_F(GameClockTest, FirstTickShowsOneSecondLess) {
  const std::vector<std::pair<std::int16_t, const char*>> cases = {
      {1, "0:00"},      {11, "0:10"},      {60, "0:59"}, {61, "1:00"}, {3601, "60:00"},
      {7201, "120:00"}, {32767, "546:06"}, {0, "0:00"},  {-1, "0:00"}, {-32768, "0:00"},
  };
  for (const auto& [seconds, text] : cases) {
    clock_.StartGameClock(500);
    After(1);
    clock_.StartGameClock(seconds);
    EXPECT_EQ(After(1), text) << seconds;
    EXPECT_EQ(clock_.IsCounting(), seconds > 0) << seconds;
  }
}

}  // namespace
}  // namespace korvanta

#include "startup/splash.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using std::chrono_literals::operator""ms;

class SplashTest : public testing::Test {
 protected:
  SplashTest() {
    splash_.on_finished = [this] {
      ++finished_;
      EXPECT_EQ(splash_.window().state(), WindowLife::State::Absent);
    };
  }

  fakes::FakeTimers timers_;
  Splash splash_{timers_, {"All rights reserved", "The Maker", "2002-2024"}};
  int finished_ = 0;
};

TEST_F(SplashTest, DotsRunFromOneToFourAgainAndAgain) {
  int changes = 0;
  splash_.on_changed = [&] { ++changes; };
  splash_.window().Show();
  EXPECT_EQ(splash_.Label4(), "Now Loading");
  for (const char* dots : {".", "..", "...", "....", ".", ".."}) {
    timers_.Tick(200ms);
    EXPECT_EQ(splash_.Label4(), std::string("Now Loading") + dots);
  }
  EXPECT_EQ(changes, 6);
}

TEST_F(SplashTest, FinishesOnceWithItsTimersOff) {
  splash_.window().Show();
  timers_.Tick(4000ms);
  timers_.Tick(4000ms);
  timers_.Tick(200ms);
  EXPECT_EQ(finished_, 1);
  EXPECT_EQ(splash_.Label4(), "Now Loading") << "no timer ticks after the end";
}

}  // namespace
}  // namespace korvanta

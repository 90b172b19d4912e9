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
    splash_.on_changed = [this] { ++changes_; };
  }

  fakes::FakeTimers timers_;
  Splash splash_{timers_, {"All rights reserved", "The Maker", "2002-2024"}};
  int finished_ = 0;
  int changes_ = 0;
};

TEST_F(SplashTest, DotsRunFromOneToFourAgainAndAgain) {
  splash_.window().Show();
  EXPECT_EQ(splash_.Label4(), "Now Loading");
  for (const char* dots : {".", "..", "...", "....", ".", ".."}) {
    timers_.Tick(200ms);
    EXPECT_EQ(splash_.Label4(), std::string("Now Loading") + dots);
  }
  EXPECT_EQ(changes_, 6);
}

TEST_F(SplashTest, FinishesOnceWithItsTimersOff) {
  splash_.window().Show();
  timers_.Tick(4000ms);
  timers_.Tick(4000ms);
  timers_.Tick(200ms);
  EXPECT_EQ(finished_, 1);
  EXPECT_EQ(splash_.Label4(), "Now Loading") << "no timer ticks after the end";
}

TEST_F(SplashTest, LoadedAgainItStartsOver) {
  splash_.window().Show();
  splash_.ShowVersion();
  timers_.Tick(200ms);
  timers_.Tick(4000ms);
  splash_.window().Show();
  EXPECT_EQ(splash_.Label4(), "Now Loading");
  EXPECT_EQ(splash_.Label3(), "");
  timers_.Tick(200ms);
  EXPECT_EQ(splash_.Label4(), "Now Loading.");
  timers_.Tick(4000ms);
  EXPECT_EQ(finished_, 2);
}

}  // namespace
}  // namespace korvanta

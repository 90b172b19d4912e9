#include "startup/splash.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using std::chrono_literals::operator""ms;

TEST(Splash, DotsRunFromOneToFourAgainAndAgain) {
  fakes::FakeTimers timers;
  Splash splash(timers, {});
  int changes = 0;
  splash.on_changed = [&] { ++changes; };
  splash.window().Show();
  EXPECT_EQ(splash.Label4(), "Now Loading");
  for (const char* dots : {".", "..", "...", "....", ".", ".."}) {
    timers.Tick(200ms);
    EXPECT_EQ(splash.Label4(), std::string("Now Loading") + dots);
  }
  EXPECT_EQ(changes, 6);
}

}  // namespace
}  // namespace korvanta

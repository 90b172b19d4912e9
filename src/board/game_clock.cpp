#include "board/game_clock.h"

#include "base/change_notice.h"

namespace korvanta {
namespace {

constexpr std::chrono::milliseconds kTickPeriod{1000};

std::string ClockText(int seconds_left) {
  const int seconds = seconds_left % 60;
  return "Tick Time - " + std::to_string(seconds_left / 60) + (seconds < 10 ? ":0" : ":") +
         std::to_string(seconds);
}

}  // namespace

GameClock::GameClock(TimerFactory& timers)
    : TickTime_(ClockText(0)), TickTimer_(timers.MakeTimer(kTickPeriod)) {
  TickTimer_->on_tick = [this] { Tick(); };
}

void GameClock::StartGameClock(std::int16_t seconds) {
  TickSecondsLeft_ = seconds;
  TickTimer_->SetEnabled(true);
}

void GameClock::Stop() { TickTimer_->SetEnabled(false); }

void GameClock::Tick() {
  if (TickSecondsLeft_ > 0) {
    --TickSecondsLeft_;
  } else {
    TickTimer_->SetEnabled(false);
  }
  std::string text = ClockText(TickSecondsLeft_ > 0 ? TickSecondsLeft_ : 0);
  if (text == TickTime_) {
    return;
  }
  TickTime_ = std::move(text);
  Notify(on_changed);
}

}  // namespace korvanta

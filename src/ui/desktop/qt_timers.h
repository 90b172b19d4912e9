/// Timers based on QTimer.
#pragma once

#include <chrono>
#include <memory>

#include "platform/timer.h"

namespace korvanta {

/// Ticks are delayed while the event loop is busy, and missed ones are not made up for.
class QtTimerFactory final : public TimerFactory {
 public:
  std::unique_ptr<Timer> MakeTimer(std::chrono::milliseconds interval) override;
};

}  // namespace korvanta

/// Periodic timers of the user-interface thread, and their factory.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace korvanta {

/// A periodic timer, disabled at first.
class Timer {
 public:
  Timer() = default;
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  virtual ~Timer() = default;

  /// Enabling starts a full period, even if the timer was enabled already. A timer may be disabled
  /// from its own tick.
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool IsEnabled() const = 0;

  std::function<void()> on_tick;
};

class TimerFactory {
 public:
  TimerFactory() = default;
  TimerFactory(const TimerFactory&) = delete;
  TimerFactory& operator=(const TimerFactory&) = delete;
  virtual ~TimerFactory() = default;

  virtual std::unique_ptr<Timer> MakeTimer(std::chrono::milliseconds interval) = 0;
};

}  // namespace korvanta

/// The game clock: counts down, once a second, from the seconds that the server gives, in the text
/// beside the board. Reaching zero only stops it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/timer.h"
#include "protocol/receivers.h"

namespace korvanta {

class GameClock final : public ClockReceiver {
 public:
  explicit GameClock(TimerFactory& timers);

  /// Restarts the count at `seconds`; the first tick follows a full second later. The text stays
  /// until then and then shows one second less; zero or less shows 0:00 and stops.
  void StartGameClock(std::int16_t seconds) override;

  /// Stops counting; the text stays.
  void Stop();

  /// "Tick Time - " and minutes, a colon and two digits of seconds.
  const std::string& TickTime() const { return TickTime_; }

  std::function<void()> on_changed;  ///< the text changed

 private:
  void Tick();

  std::int16_t TickSecondsLeft_ = 0;
  std::string TickTime_;
  std::unique_ptr<Timer> TickTimer_;
};

}  // namespace korvanta

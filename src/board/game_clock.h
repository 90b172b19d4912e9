/// The game clock: counts the server's seconds down, once a second, in the text beside the board.
/// It decides nothing; reaching zero only stops it.
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

  /// Counts from `seconds`, in place of any other count, a whole second from now. The text stays
  /// until the first tick, which shows one second less; zero or below shows 0:00 and stops.
  void StartGameClock(std::int16_t seconds) override;

  /// Stops counting; the seconds left and the text stay.
  void Stop();

  bool IsCounting() const { return TickTimer_->IsEnabled(); }
  std::int16_t TickSecondsLeft() const { return TickSecondsLeft_; }
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

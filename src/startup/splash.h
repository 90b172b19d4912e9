/// The splash window's presenter: its texts, its two timers, and the moment when it gives way to
/// the main window.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "base/window_life.h"
#include "platform/timer.h"

namespace korvanta {

class Splash {
 public:
  /// `rights` is the notice of rights: a rights line, the maker's name, a line with the years.
  Splash(TimerFactory& timers, std::array<std::string, 3> rights);

  /// Loading the window starts both timers, unloading stops them.
  WindowLife& window() { return window_; }

  /// Fills in the version line. To be called once the rest of the program is loaded.
  void ShowVersion();

  const std::array<std::string, 3>& Label5() const { return Label5_; }
  const std::string& Label4() const { return Label4_; }  ///< "Now Loading" and up to four dots
  const std::string& Label3() const { return Label3_; }  ///< the version line; empty at first

  std::function<void()> on_changed;
  /// The splash's time is over, and it has unloaded itself.
  std::function<void()> on_finished;

 private:
  void Load();
  void StopTimers();
  void Timer1Tick();
  void Timer2Tick();

  std::array<std::string, 3> Label5_;
  std::string Label4_;
  std::string Label3_;
  int dots_ = 0;
  std::unique_ptr<Timer> Timer1_;
  std::unique_ptr<Timer> Timer2_;
  WindowLife window_;
};

}  // namespace korvanta

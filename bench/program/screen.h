/// Fast access to a virtual display: notices drawing at once and presses keys within microseconds,
/// where harness::User runs a tool, which takes milliseconds, each time.
#pragma once

#include <QRect>
#include <cstdint>
#include <vector>
#include <xcb/damage.h>

#include "bench/program/figures.h"
#include "harness/virtual_display.h"

namespace korvanta::bench {

/// Throws HarnessError if the display does not respond as it should.
class Screen {
 public:
  explicit Screen(const harness::VirtualDisplay& display);
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// The pixels of that part of the screen.
  std::vector<std::uint8_t> Look(QRect place) const;
  /// Returns as soon as anything is drawn anywhere, or after `most`.
  void WaitForDrawing(std::chrono::milliseconds most);

  static constexpr std::uint32_t kReturn = 0xff0d;
  /// Presses and releases a key of the US layout without Shift, by its X symbol. Returns the time
  /// at which it was passed to the display.
  Clock::time_point Press(std::uint32_t symbol);

 private:
  xcb_connection_t* connection_;
  xcb_window_t root_;
  xcb_damage_damage_t damage_;
};

}  // namespace korvanta::bench

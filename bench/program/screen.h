/// What a benchmark measures with on a virtual display: it sees at once when something is drawn and
/// presses keys within microseconds, where harness::User takes a program, and milliseconds, for
/// each.
#pragma once

#include <QRect>
#include <cstdint>
#include <vector>
#include <xcb/damage.h>

#include "bench/program/figures.h"
#include "harness/virtual_display.h"

namespace korvanta::bench {

/// HarnessError when the display does not do its part.
class Screen {
 public:
  explicit Screen(const harness::VirtualDisplay& display);
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// The bytes of what is seen there.
  std::vector<std::uint8_t> Look(QRect place) const;
  /// Returns as soon as anything is drawn anywhere, or after `most`.
  void WaitForDrawing(std::chrono::milliseconds most);

  static constexpr std::uint32_t kReturn = 0xff0d;
  /// A key of the US layout without Shift, by its X symbol: down and up again. Returns when it was
  /// handed to the display.
  Clock::time_point Press(std::uint32_t symbol);

 private:
  xcb_connection_t* connection_;
  xcb_window_t root_;
  xcb_damage_damage_t damage_;
};

}  // namespace korvanta::bench

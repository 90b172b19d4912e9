/// The message view's font size, in steps.
#pragma once

#include <algorithm>
#include <array>

namespace korvanta {

class TextZoom {
 public:
  /// Of the font's own size.
  int percent() const { return kLevels[static_cast<std::size_t>(level_)]; }

  /// Zoomed in by that many steps, or out if negative, as far as the steps go.
  TextZoom By(int steps) const {
    TextZoom zoom;
    zoom.level_ = std::clamp(level_ + steps, 0, static_cast<int>(kLevels.size()) - 1);
    return zoom;
  }

  bool operator==(const TextZoom&) const = default;

 private:
  static constexpr std::array<int, 12> kLevels = {60,  70,  80,  90,  100, 110,
                                                  125, 150, 175, 200, 250, 300};
  static constexpr int kNormal = 4;
  static_assert(kLevels[kNormal] == 100);

  int level_ = kNormal;
};

}  // namespace korvanta

/// The size of the message view's letters, in steps that the user takes by keys and wheel.
#pragma once

#include <algorithm>
#include <array>

namespace korvanta {

class TextZoom {
 public:
  /// Of the font's own size.
  int percent() const { return kLevels[static_cast<std::size_t>(level_)]; }

  /// Larger by so many steps, smaller when negative, as far as there are any.
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

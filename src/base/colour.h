/// A colour of the screen.
#pragma once

#include <cstdint>

namespace korvanta {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBlack{0, 0, 0};

}  // namespace korvanta

/// The topics that players research, by their codes on the wire.
#pragma once

#include <cstdint>

namespace korvanta {

/// Servers may send any other 16-bit value.
enum class TopicCode : std::int16_t {
  Military = 1,
  Industry,
  Population,
  Defense,
  GoldenKnowledge,
};

}  // namespace korvanta

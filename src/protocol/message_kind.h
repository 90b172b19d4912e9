/// The kinds of lines in the message view.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace korvanta {

/// Any other value is drawn like Status.
enum class MessageKind : std::int32_t {
  Chat = 0,
  Announcement = 1,
  Admin = 2,
  Status = 3,  ///< one black line; every line that the client writes itself
  Tell = 4,
  Team = 5,
  Plain = 6,
};

/// The code word of each kind in a message, by kind.
inline constexpr auto kMessageKindCodes =
    std::to_array<std::string_view>({"cht", "ann", "adm", "blk", "tel", "tem", "pln"});

}  // namespace korvanta

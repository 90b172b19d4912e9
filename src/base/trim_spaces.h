/// Removal of the spaces around what a user typed or chose.
#pragma once

#include <string_view>

namespace korvanta {

/// The text without leading and trailing spaces (code 32 alone; other blanks stay), as a view into
/// it.
inline std::string_view TrimSpaces(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace korvanta

/// Trimming of text.
#pragma once

#include <string_view>

namespace korvanta {

/// The text without leading and trailing `blanks`, as a view into it.
constexpr std::string_view Trim(std::string_view text, std::string_view blanks) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Trims spaces only (code 32; other blanks stay), as is done with what a user typed or chose.
constexpr std::string_view TrimSpaces(std::string_view text) { return Trim(text, " "); }

}  // namespace korvanta

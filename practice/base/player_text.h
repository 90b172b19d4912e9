/// What the server makes of text that players send: bytes, one a character, of any value.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace korvanta::practice {

inline constexpr std::size_t kShortestName = 4;
inline constexpr std::size_t kLongestName = 20;
inline constexpr std::size_t kLongestPassword = 64;

/// The text without control characters (codes 0 to 31 and 127), so that nothing in it can end a
/// field or a line.
std::string WithoutControls(std::string_view text);

/// Two names that differ in letter case alone have the same key.
std::string NameKey(std::string_view name);

/// 4 to 20 ASCII letters and digits.
bool IsUserName(std::string_view text);

/// 1 to 64 characters.
bool IsPassword(std::string_view text);

/// The word up to the first space, and the rest without spaces at its ends.
std::pair<std::string_view, std::string_view> FirstWord(std::string_view text);

/// A whole number of digits alone within lowest to highest; nothing otherwise.
std::optional<int> NumberWithin(std::string_view text, int lowest, int highest);

}  // namespace korvanta::practice

/// What the server makes of text that players send: bytes, one a character, of any value.
#pragma once

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/ascii_case.h"
#include "base/trim.h"

namespace korvanta::practice {

inline constexpr std::size_t kLongestName = 20;

/// The text without control characters (codes 0 to 31 and 127), so that nothing in it can end a
/// field or a line.
inline std::string WithoutControls(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](unsigned char c) { return c < 32 || c == 127; });
  return kept;
}

/// Two names that differ in letter case alone have the same key.
inline std::string NameKey(std::string_view name) {
  std::string key(name);
  std::transform(key.begin(), key.end(), key.begin(), LowerCase);
  return key;
}

/// 4 to 20 ASCII letters and digits.
inline bool IsUserName(std::string_view text) {
  return text.size() >= 4 && text.size() <= kLongestName &&
         std::all_of(text.begin(), text.end(), [](char c) {
           return (c >= '0' && c <= '9') || (LowerCase(c) >= 'a' && LowerCase(c) <= 'z');
         });
}

/// 1 to 64 characters.
inline bool IsPassword(std::string_view text) { return !text.empty() && text.size() <= 64; }

/// The word up to the first space, and the rest without spaces at its ends.
inline std::pair<std::string_view, std::string_view> FirstWord(std::string_view text) {
  text = TrimSpaces(text);
  const std::size_t end = std::min(text.find(' '), text.size());
  return {text.substr(0, end), TrimSpaces(text.substr(end))};
}

/// A whole number of digits alone within lowest to highest; nothing otherwise.
inline std::optional<int> NumberWithin(std::string_view text, int lowest, int highest) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc() && end == text.data() + text.size();
  return is_number && number >= lowest && number <= highest ? std::optional(number) : std::nullopt;
}

}  // namespace korvanta::practice

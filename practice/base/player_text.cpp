#include "practice/base/player_text.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "base/ascii_case.h"
#include "base/trim.h"

namespace korvanta::practice {
namespace {

constexpr bool IsLetterOrDigit(char c) {
  const char lower = LowerCase(c);
  return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9');
}

constexpr bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 32 || code == 127;
}

}  // namespace

std::string WithoutControls(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  std::remove_copy_if(text.begin(), text.end(), std::back_inserter(kept), IsControl);
  return kept;
}

std::string NameKey(std::string_view name) {
  std::string key(name);
  std::transform(key.begin(), key.end(), key.begin(), LowerCase);
  return key;
}

bool IsUserName(std::string_view text) {
  return text.size() >= kShortestName && text.size() <= kLongestName &&
         std::all_of(text.begin(), text.end(), IsLetterOrDigit);
}

bool IsPassword(std::string_view text) { return !text.empty() && text.size() <= kLongestPassword; }

std::pair<std::string_view, std::string_view> FirstWord(std::string_view text) {
  text = TrimSpaces(text);
  const std::size_t end = std::min(text.find(' '), text.size());
  return {text.substr(0, end), TrimSpaces(text.substr(end))};
}

std::optional<int> NumberWithin(std::string_view text, int lowest, int highest) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < lowest ||
      number > highest) {
    return std::nullopt;
  }
  return number;
}

}  // namespace korvanta::practice

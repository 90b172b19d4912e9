/// Letter case of ASCII text, whatever the locale. Every other byte is left as it is.
#pragma once

#include <algorithm>
#include <string_view>

namespace korvanta {

constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char UpperCase(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool SameLetter(char a, char b) { return LowerCase(a) == LowerCase(b); }

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameLetter);
}

}  // namespace korvanta

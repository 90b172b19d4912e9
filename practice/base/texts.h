/// Lists of texts that something is picked from.
#pragma once

#include <array>
#include <string_view>

namespace korvanta::practice {

template <typename... Text>
constexpr std::array<std::string_view, sizeof...(Text)> Texts(const Text&... texts) {
  return {texts...};
}

}  // namespace korvanta::practice

/// Dice of a seed, which fall the same on every machine.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string_view>

namespace korvanta::practice {

/// A list of texts to pick from.
template <typename... Text>
constexpr std::array<std::string_view, sizeof...(Text)> Texts(const Text&... texts) {
  return {texts...};
}

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  /// 0 to `end` - 1; `end` is at least 1.
  std::size_t Below(std::size_t end) { return engine_() % end; }
  bool OneIn(std::size_t chances) { return Below(chances) == 0; }
  bool Chance(int percent) { return Below(100) < static_cast<std::size_t>(percent); }
  std::chrono::milliseconds Between(std::chrono::milliseconds least,
                                    std::chrono::milliseconds most) {
    return least +
           std::chrono::milliseconds(Below(static_cast<std::size_t>((most - least).count()) + 1));
  }
  /// The list must not be empty.
  template <typename List>
  const auto& Pick(const List& list) {
    return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(Below(std::size(list))));
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace korvanta::practice

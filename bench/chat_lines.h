/// Chat lines for the benchmarks, varied but the same in every run, and a counter for the cost of
/// one.
#pragma once

#include <benchmark/benchmark.h>
#include <cstddef>
#include <string>
#include <vector>

namespace korvanta::bench {

/// Bytes per line, without its line break.
constexpr std::size_t kLineLength = 75;

/// Ordinary chat, "name: words". Nothing is masked, but some words begin like one that would be.
std::vector<std::string> CleanLines(std::size_t count);

/// Listed words in random letter case, one after the other, with an occasional space.
std::vector<std::string> OffensiveLines(std::size_t count);

/// Seconds per item when one iteration handles `items` of them.
benchmark::Counter SecondsEach(std::size_t items);

}  // namespace korvanta::bench

/// Chat lines for the benchmarks, many different ones and the same in every run, and the counter of
/// what one of them costs.
#pragma once

#include <benchmark/benchmark.h>
#include <cstddef>
#include <string>
#include <vector>

namespace korvanta::bench {

/// Bytes of every line, its line break not counted.
constexpr std::size_t kLineLength = 75;

/// What players say, "name: words". Nothing is masked, but here and there a word begins like one
/// that would be.
std::vector<std::string> CleanLines(std::size_t count);

/// Listed words one behind the other, in any letter case, with a space here and there.
std::vector<std::string> OffensiveLines(std::size_t count);

/// Seconds for each of `items` that one iteration handles.
benchmark::Counter SecondsEach(std::size_t items);

}  // namespace korvanta::bench

/// The cost of the language filter on clean lines and on lines full of hits, beside one
/// case-insensitive search per word.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <string>
#include <string_view>
#include <vector>

#include "chat_lines.h"
#include "lobby/language_filter.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr std::size_t kLines = 4096;  // too many for the branch predictor to memorise

using Lines = std::vector<std::string> (*)(std::size_t count);

std::string_view Filtered(const LanguageFilter& filter, std::string_view line,
                          std::string& masked) {
  return filter.FilterLanguage(line, masked);
}

/// The yardstick: a pass for each word, in the list's order.
std::string_view SixteenPasses(const LanguageFilter& filter, std::string_view line,
                               std::string& masked) {
  const auto same_letter = [](char a, char b) {
    return a == b || ((a ^ b) == 0x20 && (a | 0x20) >= 'a' && (a | 0x20) <= 'z');
  };
  masked = line;
  for (std::string_view word : Split(filter.FilterWords(), ';')) {
    auto at = masked.begin();
    while ((at = std::search(at, masked.end(), word.begin(), word.end(), same_letter)) !=
           masked.end()) {
      at = std::fill_n(at, word.size(), '*');
    }
  }
  return masked;
}

void Run(benchmark::State& state, Lines make_lines,
         std::string_view (*filter_line)(const LanguageFilter&, std::string_view, std::string&)) {
  LanguageFilter filter;
  filter.SetFilterWords(modData::kFilterWords);
  const std::vector<std::string> lines = make_lines(kLines);
  std::string masked;
  std::string masked_by_passes;
  for (const std::string& line : lines) {
    if (Filtered(filter, line, masked) != SixteenPasses(filter, line, masked_by_passes)) {
      return state.SkipWithError("the two ways give different texts");
    }
  }
  for (auto _ : state) {
    for (const std::string& line : lines) {
      benchmark::DoNotOptimize(filter_line(filter, line, masked));
    }
  }
  state.counters["per_line"] = bench::SecondsEach(kLines);
  state.SetBytesProcessed(state.iterations() *
                          static_cast<std::int64_t>(kLines * bench::kLineLength));
}
BENCHMARK_CAPTURE(Run, clean, bench::CleanLines, Filtered);
BENCHMARK_CAPTURE(Run, clean_in_sixteen_passes, bench::CleanLines, SixteenPasses);
BENCHMARK_CAPTURE(Run, hits, bench::OffensiveLines, Filtered);
BENCHMARK_CAPTURE(Run, hits_in_sixteen_passes, bench::OffensiveLines, SixteenPasses);

}  // namespace
}  // namespace korvanta

#include "practice/players/figures.h"

#include <algorithm>
#include <array>

namespace korvanta::practice {
namespace {

struct Award {
  int code;
  std::int64_t Figures::*figure;
  std::int64_t threshold;
};

constexpr auto kAwards = std::to_array<Award>({
    {1, &Figures::score, 1'000'000},
    {2, &Figures::score, 500'000},
    {3, &Figures::score, 250'000},
    {4, &Figures::score, 100'000},
    {5, &Figures::score, 50'000},
    {22, &Figures::score, 25'000},
    {6, &Figures::score, 10'000},
    {21, &Figures::score, 1'000},
    {7, &Figures::wins, 1'000},
    {8, &Figures::wins, 500},
    {9, &Figures::wins, 100},
    {10, &Figures::wins, 10},
    {11, &Figures::wins, 1},
    {12, &Figures::research_destroyed, 5'000},
    {13, &Figures::research_destroyed, 1'000},
    {14, &Figures::research_destroyed, 250},
    {15, &Figures::research_destroyed, 100},
    {16, &Figures::research_destroyed, 50},
    {17, &Figures::blocks, 1'000},
    {18, &Figures::blocks, 500},
    {19, &Figures::blocks, 100},
    {23, &Figures::blocks, 50},
    {20, &Figures::blocks, 25},
});

}  // namespace

std::vector<int> AwardCodes(const Figures& figures) {
  std::vector<int> codes;
  for (const Award& award : kAwards) {
    if (figures.*award.figure >= award.threshold) {
      codes.push_back(award.code);
    }
  }
  if (codes.empty()) {
    codes.push_back(kNoAwards);
  }
  return codes;
}

std::int64_t PlayerLevel(const Figures& figures) {
  return 1 + std::max<std::int64_t>(figures.score, 0) / 1'000;
}

}  // namespace korvanta::practice

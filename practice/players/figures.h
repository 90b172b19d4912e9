/// The figures that are counted for a player over a run of the server, and what follows from them.
#pragma once

#include <cstdint>
#include <vector>

namespace korvanta::practice {

struct Figures {
  std::int64_t wins = 0;
  std::int64_t games_played = 0;
  std::int64_t research = 0;
  std::int64_t research_lost = 0;
  std::int64_t research_destroyed = 0;
  std::int64_t alliance_screw_overs = 0;
  std::int64_t score = 0;
  std::int64_t blocks = 0;
  std::int64_t alliance_wins = 0;
};

/// The award code that says that a player has none.
inline constexpr int kNoAwards = 24;

/// Codes of all awards reached: score, wins, research destroyed, blocks, the highest of each series
/// first. kNoAwards alone when there is none.
std::vector<int> AwardCodes(const Figures& figures);

/// 1 for a beginner, and one more for every 1,000 of total score.
std::int64_t PlayerLevel(const Figures& figures);

}  // namespace korvanta::practice

/// Every message that the server sends, one function each. Each returns the whole message. Texts
/// must hold no separators and no terminator; nothing is escaped.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "practice/players/figures.h"
#include "protocol/message_kind.h"

namespace korvanta::practice {

/// The colour of a name in the online list.
enum class NameColour : std::uint8_t {
  Administrator = 1,  // dark yellow
  Away = 2,           // grey
  Allied = 3,         // purple
  InTeam = 4,         // green
  Visitor = 5,        // blue
  Playing = 6,        // cyan
  NearWinning = 7,    // red
  Simulated = 8,      // orange
};

/// What a player hears.
enum class Sound : std::uint8_t { GameStart = 1, Tick, Attack, Attacked, Research, Win };

struct OnlineEntry {
  std::string_view name;
  NameColour colour;
  std::int64_t level;
  bool is_marked;  ///< plays, or is ready for the next game
};

struct PlayerRecord {
  std::string_view name;
  std::string_view alliance;
  std::size_t identification;
  Figures figures;
};

struct TournamentFigures {
  std::int64_t entry_fee = 0;
  std::int64_t purse = 0;
  std::size_t teams = 0;
  std::size_t players = 0;
};

namespace messages {

std::string LoginAccepted(std::string_view user_name, std::int16_t user_id);
std::string Notice(std::string_view text);
std::string Statistics(const PlayerRecord& record);

/// A line that the view shows in two colours, parted at the colon behind the speaker, whose name
/// holds none: "speaker: words".
std::string ChatLine(MessageKind kind, std::string_view speaker, std::string_view words);
/// A line in black.
std::string StatusLine(std::string_view text);

std::string Caption(std::string_view text);
std::string Clock(std::int64_t seconds);
std::string Pause(std::int64_t seconds);
std::string PlaySound(Sound sound);
std::string Researched(int topic, int level);
std::string Attacked(int topic, int level);
std::string ClearBoard();
std::string ClearTournamentBoard();
std::string ResearchPoints(std::int64_t points);

std::string News(std::string_view text);
std::string OnlineList(std::span<const OnlineEntry> entries);
std::string TournamentInfo(const TournamentFigures& figures);
std::string TeamList(std::span<const std::string> lines);
std::string TeamNames(std::span<const std::string_view> names);

}  // namespace messages

}  // namespace korvanta::practice

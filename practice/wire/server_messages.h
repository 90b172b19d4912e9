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

std::string LoginAccepted(std::string_view user_name, std::int16_t user_id);  // [con]
std::string Notice(std::string_view text);                                    // [log]
std::string Statistics(const PlayerRecord& record);                           // [bre]

/// A line that the view shows in two colours, parted at the colon behind the speaker, whose name
/// holds none: "speaker: words".
std::string ChatLine(MessageKind kind, std::string_view speaker, std::string_view words);  // [msg]
/// A line in black.
std::string StatusLine(std::string_view text);  // [msg]

std::string Caption(std::string_view text);       // [cap]
std::string Clock(std::int64_t seconds);          // [tim]
std::string Pause(std::int64_t seconds);          // [end]
std::string PlaySound(Sound sound);               // [sou]
std::string Researched(int topic, int level);     // [upg]
std::string Attacked(int topic, int level);       // [att]
std::string ClearBoard();                         // [clr]
std::string ClearTournamentBoard();               // [clt]
std::string ResearchPoints(std::int64_t points);  // [poi]

std::string News(std::string_view text);                         // [nws]
std::string OnlineList(std::span<const OnlineEntry> entries);    // [onl]
std::string TournamentInfo(const TournamentFigures& figures);    // [tif]
std::string TeamList(std::span<const std::string> lines);        // [ttm]
std::string TeamNames(std::span<const std::string_view> names);  // [tdd]

}  // namespace messages

}  // namespace korvanta::practice

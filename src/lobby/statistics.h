/// The presenter of the statistics window: one player's record and awards as the server sends them,
/// and the lookup of any player by name.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_life.h"
#include "protocol/connection.h"
#include "protocol/connection_values.h"

namespace korvanta {

/// One read-only field of the window.
struct StatisticsField {
  std::string_view control;
  std::string_view label;   ///< '&' precedes the mnemonic
  std::size_t reply_field;  ///< its index in the server's reply
};

/// From top to bottom.
inline constexpr std::array<StatisticsField, 11> kStatisticsFields = {{
    {"rbScore", "&Total Score", 9},
    {"txtAlliance", "&Alliance", 1},
    {"txtID", "&Identification #", 2},
    {"txtWins", "&Game Wins", 3},
    {"txtAllianceWins", "Alliance &Wins", 11},
    {"txtPlayed", "Games &Played", 4},
    {"txtResearch", "Total &Research", 5},
    {"txtLost", "Research &Lost", 6},
    {"txtDestroy", "&Enemy Research Destroyed", 7},
    {"txtBlocks", "Total &Blocks", 10},
    {"txtScrew", "Alliance S&crew-Overs", 8},
}};

/// What the window shows.
struct StatisticsState {
  std::string UserInput;
  std::string frmUserData = "Statistics for 'none'";         ///< the frame's caption
  std::string frmAward = "Awards for 'none'";                ///< the frame's caption
  std::array<std::string, kStatisticsFields.size()> fields;  ///< as kStatisticsFields
  std::vector<std::string_view> lstAwards;

  bool operator==(const StatisticsState&) const = default;
};

namespace modData {

/// Appends an award's line to the award list; nothing for a code without an award. Throws
/// MessageError if the whole code is not a number.
void AddAward(StatisticsState& statistics, std::string_view code);

}  // namespace modData

class Statistics final : public StatisticsReceiver {
 public:
  /// Loading the window requests the user's own record if logged in.
  Statistics(Connection& connection, const ConnectionValues& values);

  WindowLife& window() { return window_; }
  const StatisticsState& state() const { return state_; }

  /// The user edited the name to look up. Does not notify: the box shows it already.
  void UserInputTyped(std::string_view text) { state_.UserInput = text; }

  /// "Search User": requests the record of the name as typed, spaces included, if logged in and the
  /// name is not just spaces.
  void SearchClicked();

  /// Shows the server's reply; creates the window hidden if absent. Throws MessageError for a
  /// missing field or a malformed award code, after showing everything before it; an empty reply
  /// creates no window.
  void ShowUserStatistics(std::string_view payload) override;

  std::function<void()> on_changed;

 private:
  void Load();

  Connection& connection_;
  const ConnectionValues& values_;
  StatisticsState state_;
  WindowLife window_;
};

}  // namespace korvanta

/// The statistics window: one player's record and awards as the server tells them, and the look-up
/// of any player by name.
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
  std::string_view label;   ///< with the mark of its mnemonic
  std::size_t reply_field;  ///< where the server's reply holds its text
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

/// Adds the line of an award to the end of the award list; a code without an award adds nothing.
/// Raises MessageError for a code that is not a number as a whole.
void AddAward(StatisticsState& statistics, std::string_view code);

}  // namespace modData

class Statistics final : public StatisticsReceiver {
 public:
  /// Loading the window asks for the user's own record when logged in.
  Statistics(Connection& connection, const ConnectionValues& values);

  WindowLife& window() { return window_; }
  const StatisticsState& state() const { return state_; }

  /// The user changed the name to look up; nobody is told, the box shows it already.
  void UserInputTyped(std::string_view text) { state_.UserInput = text; }

  /// "Search User": asks for the record of the name as typed, spaces included, when logged in and
  /// the name is not just spaces.
  void SearchClicked();

  /// The server's reply with one player's record; creates the window unseen when it is absent.
  /// Raises MessageError for a missing field and for a broken award code, after showing everything
  /// in front of it; an empty reply creates no window.
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

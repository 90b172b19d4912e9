/// The presenter of the tournament window: the tournament's figures, the teams, and the requests of
/// players and administrators. The server runs the tournament.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/window_life.h"
#include "platform/message_box.h"
#include "protocol/connection.h"
#include "protocol/connection_values.h"

namespace korvanta {

/// The text boxes of the window, all of them editable.
struct TournamentTexts {
  std::string iEntryFee;
  std::string txtPurse;
  std::string iMaxTeams;    ///< shows the current number of teams
  std::string iMaxPlayers;  ///< shows the current number of players
  std::string cmbTeam;
  std::string txtPassword;
  std::string EntryFee;
  std::string MaxTeams;
  std::string MaxPlayers;

  bool operator==(const TournamentTexts&) const = default;
};

enum class TournamentTab { Info, Teams, Admin };

/// What the window shows.
struct TournamentState {
  TournamentTexts texts;
  std::vector<std::string> team_names;  ///< the drop-down list of cmbTeam
  std::vector<std::string> lstTeams;
  std::optional<std::size_t> selected_team;  ///< an index into lstTeams
  TournamentTab chosen_tab = TournamentTab::Info;
  bool has_admin_tab = false;  ///< decided when the window is created

  bool operator==(const TournamentState&) const = default;
};

/// Requests are silently dropped while the socket is not connected.
class Tournament final : public TournamentReceiver {
 public:
  /// Loading the window decides whether there is an Admin tab, then requests the figures.
  Tournament(Connection& connection, const ConnectionValues& values, MessageBox& message_box);

  WindowLife& window() { return window_; }
  const TournamentState& state() const { return state_; }

  void ShowTournamentWindow() { window_.Show(); }

  /// The user edited a box. Does not notify: the box shows it already.
  void Typed(std::string TournamentTexts::*box, std::string_view text) { state_.texts.*box = text; }

  /// The user chose a tab, perhaps the current one again. The Info tab requests the figures, the
  /// Teams tab the list of teams. The Admin tab is ignored if absent.
  void TabChosen(TournamentTab tab);

  /// The user selected an entry of lstTeams or none. Does not notify.
  void TeamSelected(std::optional<std::size_t> index);

  void CreateJoinClicked();         // Command4
  void KickPlayerClicked();         // KickPlayer
  void DisbandTeamClicked();        // btnDisband
  void StartTournamentClicked();    // Command1
  void SetTournamentGameClicked();  // Command2
  void EndTournamentClicked();      // Command3

  // The server's messages. Each creates the window hidden if absent and keeps the current tab.

  /// Throws MessageError for a missing field, after showing those before it.
  void ShowTournamentInfo(std::string_view payload) override;

  /// Rebuilds the list of teams and clears the selection.
  void ShowTeamList(std::string_view payload) override;

  /// Rebuilds the list of team names; the typed name stays.
  void ShowTeamNames(std::string_view payload) override;

  std::function<void()> on_changed;

 private:
  void Load();
  void ShowMessage(std::string_view text);

  /// Empty if none is selected.
  std::string_view SelectedTeamText() const;

  Connection& connection_;
  const ConnectionValues& values_;
  MessageBox& message_box_;
  TournamentState state_;
  WindowLife window_;
};

}  // namespace korvanta

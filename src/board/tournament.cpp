#include "board/tournament.h"

#include <cstdint>

#include "base/change_notice.h"
#include "base/trim.h"
#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

/// Users with this id and above administer tournaments.
constexpr std::int16_t kFirstAdminID = 90;

}  // namespace

Tournament::Tournament(Connection& connection, const ConnectionValues& values,
                       MessageBox& message_box)
    : connection_(connection),
      values_(values),
      message_box_(message_box),
      window_([this] { Load(); }) {}

void Tournament::Load() {
  state_ = {};
  state_.has_admin_tab = values_.UserID >= kFirstAdminID;
  connection_.SendIfSocketConnected(outbound::RequestTournamentInfo());
}

void Tournament::TabChosen(TournamentTab tab) {
  if (tab == TournamentTab::Admin && !state_.has_admin_tab) {
    return;
  }
  const ChangeNotice notice(state_, on_changed);
  state_.chosen_tab = tab;
  if (tab == TournamentTab::Info) {
    connection_.SendIfSocketConnected(outbound::RequestTournamentInfo());
  } else if (tab == TournamentTab::Teams) {
    connection_.SendIfSocketConnected(outbound::RequestTeamList());
  }
}

void Tournament::TeamSelected(std::optional<std::size_t> index) {
  state_.selected_team = index && *index < state_.lstTeams.size() ? index : std::nullopt;
}

void Tournament::CreateJoinClicked() {
  if (TrimSpaces(state_.texts.cmbTeam).empty()) {
    ShowMessage("Please Enter a Team Name or Choose one!");
    return;
  }
  if (TrimSpaces(state_.texts.txtPassword).empty()) {
    ShowMessage("Please Enter a Team Password!");
    return;
  }
  const ChangeNotice notice(state_, on_changed);
  if (connection_.SendIfSocketConnected(
          outbound::JoinTeam(state_.texts.cmbTeam, state_.texts.txtPassword))) {
    state_.texts.txtPassword.clear();
  }
}

void Tournament::KickPlayerClicked() {
  // A new list may arrive while the question is open; the player in question stays the same.
  const std::string player(TrimSpaces(SelectedTeamText()));
  if (player.empty()) {
    ShowMessage("You must choose a player to kick!");
    return;
  }
  if (message_box_.Ask("Are you sure you wish to kick this player?", kApplicationTitle)) {
    connection_.SendIfSocketConnected(outbound::KickPlayer(player));
  }
}

void Tournament::DisbandTeamClicked() {
  if (SelectedTeamText().empty()) {
    return;
  }
  if (message_box_.Ask("Are you sure you wish to disband your team?", kApplicationTitle)) {
    connection_.SendIfSocketConnected(outbound::DisbandTeam());
  }
}

void Tournament::StartTournamentClicked() {
  const TournamentTexts& texts = state_.texts;
  connection_.SendIfSocketConnected(
      outbound::StartTournament(texts.EntryFee, texts.MaxTeams, texts.MaxPlayers));
}

void Tournament::SetTournamentGameClicked() {
  connection_.SendIfSocketConnected(outbound::SetTournamentGame());
}

void Tournament::EndTournamentClicked() {
  connection_.SendIfSocketConnected(outbound::EndTournament());
}

void Tournament::ShowTournamentInfo(std::string_view payload) {
  window_.Create();
  const ChangeNotice notice(state_, on_changed);
  TournamentTexts& texts = state_.texts;
  texts.iEntryFee.clear();
  texts.iMaxTeams.clear();
  texts.iMaxPlayers.clear();
  FieldReader fields(payload);
  texts.iEntryFee = fields.Next();
  texts.txtPurse = fields.Next();
  texts.iMaxTeams = fields.Next();
  texts.iMaxPlayers = fields.Next();
}

void Tournament::ShowTeamList(std::string_view payload) {
  window_.Create();
  const ChangeNotice notice(state_, on_changed);
  state_.lstTeams.clear();
  state_.selected_team.reset();
  for (std::string_view record : Split(payload, kRecordSeparator)) {
    if (!record.empty()) {
      state_.lstTeams.emplace_back(record);
    }
  }
}

void Tournament::ShowTeamNames(std::string_view payload) {
  window_.Create();
  const ChangeNotice notice(state_, on_changed);
  state_.team_names.clear();
  for (std::string_view name : Split(payload, kFieldSeparator)) {
    if (!name.empty()) {
      state_.team_names.emplace_back(name);
    }
  }
}

void Tournament::ShowMessage(std::string_view text) {
  message_box_.Show(text, kApplicationTitle, MessageIcon::None);
}

std::string_view Tournament::SelectedTeamText() const {
  return state_.selected_team ? std::string_view(state_.lstTeams[*state_.selected_team])
                              : std::string_view();
}

}  // namespace korvanta

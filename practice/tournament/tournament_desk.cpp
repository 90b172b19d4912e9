#include "practice/tournament/tournament_desk.h"

#include <string>
#include <vector>

#include "base/trim.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {

void TournamentDesk::SendInfo(const Player& player) {
  const int fee = tournament_.terms().entry_fee;
  const std::size_t members = tournament_.CountPlayers();
  std::vector<std::string_view> names;
  names.reserve(tournament_.teams().size());
  for (const Team& team : tournament_.teams()) {
    names.emplace_back(team.name);
  }
  const auto purse = static_cast<std::int64_t>(members) * fee;
  players_.Send(player, Message<ServerMessage::TournamentInfo>(fee, purse, names.size(), members) +
                            BuildMessage(TagOf(ServerMessage::TeamNames),
                                         {Joined(names, {&kFieldSeparator, 1})}));
}

void TournamentDesk::SendTeamList(const Player& player) {
  std::vector<std::string> lines;
  for (const Team& team : tournament_.teams()) {
    lines.push_back("Team " + team.name + ", led by " + team.leader());
    for (const std::string& member : team.members) {
      lines.push_back("    " + member);
    }
  }
  players_.Send(player, BuildMessage(TagOf(ServerMessage::TeamList),
                                     {Joined(lines, {&kRecordSeparator, 1})}));
}

void TournamentDesk::Start(const Player& player, std::string_view entry_fee,
                           std::string_view max_teams, std::string_view max_players) {
  if (MayManage(player) &&
      !players_.Refuse(player, tournament_.Open(entry_fee, max_teams, max_players), max_teams,
                       max_players)) {
    const Tournament::Terms& terms = tournament_.terms();
    players_.SayToAll(sentences::kTournamentOpens, terms.max_teams, terms.max_players,
                      terms.entry_fee);
    SendInfo(player);
  }
}

void TournamentDesk::SetGame(const Player& player) {
  if (MayManage(player) && !players_.Refuse(player, tournament_.SetGame())) {
    players_.SayToAll(sentences::kTournamentGameSet);
    players_.Say(player, sentences::kSetForNextGame);
  }
}

void TournamentDesk::End(const Player& player) {
  if (MayManage(player) && !players_.Refuse(player, tournament_.End())) {
    players_.SayToAll(sentences::kTournamentOver);
    for (const Team& team : tournament_.teams()) {
      SayToTeam(team, player.name(), sentences::kTeamStays);
    }
    SendInfo(player);
  }
}

void TournamentDesk::Join(const Player& player, std::string_view team_name,
                          std::string_view password) {
  const std::int64_t score = player.account->figures.score;
  const int fee = tournament_.terms().entry_fee;
  const Team* current = tournament_.TeamOf(player.name());
  const std::string current_name = current == nullptr ? "" : current->name;
  const Refusal refusal =
      score < fee ? Refusal::EntryFeeTooHigh : tournament_.Join(player.name(), team_name, password);
  if (players_.Refuse(player, refusal, fee, score, current_name)) {
    return;
  }
  const Team& team = *tournament_.TeamOf(player.name());
  if (team.members.size() == 1) {
    players_.Say(player, sentences::kTeamMade);
  } else {
    SayToTeam(team, player.name(), sentences::kJoined);
  }
  SendBoth(player);
}

void TournamentDesk::Disband(const Player& player) {
  const Team* team = tournament_.TeamOf(player.name());
  const Refusal refusal = team == nullptr                   ? Refusal::NotInTeam
                          : team->leader() != player.name() ? Refusal::OnlyLeaderDisbands
                                                            : Refusal::None;
  if (!players_.Refuse(player, refusal, team == nullptr ? "" : team->leader())) {
    SayToTeam(*team, player.name(), sentences::kDisbanded);
    tournament_.Disband(player.name());
    SendBoth(player);
  }
}

void TournamentDesk::Kick(const Player& player, std::string_view name) {
  const Account* account = accounts_.Find(TrimSpaces(name));
  const Team* team = tournament_.TeamOf(player.name());
  const bool is_member =
      team != nullptr && account != nullptr && tournament_.TeamOf(account->name) == team;
  const bool leaves = is_member && account->name == player.name();
  const Refusal refusal = !is_member                                   ? Refusal::NoTeamMember
                          : !leaves && team->leader() != player.name() ? Refusal::OnlyLeaderKicks
                                                                       : Refusal::None;
  if (!players_.Refuse(player, refusal, team == nullptr ? "" : team->leader())) {
    SayToTeam(*team, player.name(),
              leaves ? std::string(sentences::kLeft) : Filled(sentences::kKicked, {account->name}));
    tournament_.Remove(account->name);
    SendBoth(player);
  }
}

void TournamentDesk::Say(const Player& player, std::string_view words) {
  if (const Team* team = tournament_.TeamOf(player.name())) {
    SayToTeam(*team, player.name(), words);
  } else {
    players_.Refuse(player, Refusal::NotInTeam);
  }
}

bool TournamentDesk::MayManage(const Player& player) {
  return !players_.Refuse(
      player, player.account->IsAdministrator() ? Refusal::None : Refusal::AdministratorsManage);
}

void TournamentDesk::SendBoth(const Player& player) {
  SendInfo(player);
  SendTeamList(player);
}

void TournamentDesk::SayToTeam(const Team& team, std::string_view speaker, std::string_view words) {
  const std::string line =
      ChatLine(MessageKind::Team, team.name + " - " + std::string(speaker), words);
  for (const std::string& member : team.members) {
    if (const Player* online = players_.Find(member)) {
      players_.Send(*online, line);
    }
  }
}

}  // namespace korvanta::practice

/// The lobby's side of teams and tournaments: joining, leaving, lists and team chat.
#include <string>
#include <vector>

#include "practice/lobby.h"
#include "practice/player_text.h"

namespace korvanta::practice {

void Lobby::SendTournamentInfo(Player& player, const Fields& /*fields*/) {
  std::vector<std::string_view> names;
  TournamentFigures figures;
  for (const Team& team : teams_.all()) {
    names.emplace_back(team.name);
    figures.players += team.members.size();
  }
  figures.teams = names.size();
  Send(player, messages::TournamentInfo(figures));
  Send(player, messages::TeamNames(names));
}

void Lobby::SendTeamList(Player& player, const Fields& /*fields*/) {
  std::vector<std::string> lines;
  for (const Team& team : teams_.all()) {
    lines.push_back("Team " + team.name + ", led by " + team.leader());
    for (const std::string& member : team.members) {
      lines.push_back("    " + member);
    }
  }
  Send(player, messages::TeamList(lines));
}

void Lobby::ManageTournament(Player& player, const Fields& /*fields*/) {
  Refuse(player, player.account->IsAdministrator()
                     ? "No game is running yet, so there is no tournament to manage either."
                     : "Only an administrator may manage tournaments.");
}

void Lobby::JoinTeam(Player& player, const Fields& fields) {
  switch (teams_.Join(player.name(), fields[0], fields[1])) {
    case Teams::Joining::Created:
      Answer(player,
             "You lead the new team. Others join it with its name and password; /team "
             "speaks to its members alone.");
      break;
    case Teams::Joining::Joined: {
      SendToTeam(*teams_.TeamOf(player.name()), player.name(), "has joined the team");
      break;
    }
    case Teams::Joining::InTeamAlready:
      Refuse(player, "You are in the team " + teams_.TeamOf(player.name())->name +
                         ". Leave it first: kick yourself in the list of teams.");
      return;
    case Teams::Joining::WrongPassword:
      Refuse(player, "That team exists and its password is another.");
      return;
    case Teams::Joining::BadName:
      Refuse(player, "A team's name has 1 to " + std::to_string(kLongestTeamName) +
                         " characters and no colon.");
      return;
    case Teams::Joining::BadPassword:
      Refuse(player,
             "A team's password has 1 to " + std::to_string(kLongestPassword) + " characters.");
      return;
    case Teams::Joining::NoRoom:
      Refuse(player, "There are too many teams for another one.");
      return;
  }
  TeamsChanged(player);
}

void Lobby::DisbandTeam(Player& player, const Fields& /*fields*/) {
  const Team* team = teams_.TeamOf(player.name());
  if (team == nullptr) {
    Refuse(player, "You are in no team.");
    return;
  }
  if (team->leader() != player.name()) {
    Refuse(player, "Only " + team->leader() +
                       ", who leads the team, may disband it. To leave it, "
                       "kick yourself in the list of teams.");
    return;
  }
  SendToTeam(*team, player.name(), "has disbanded the team");
  teams_.Disband(player.name());
  TeamsChanged(player);
}

void Lobby::KickFromTeam(Player& player, const Fields& fields) {
  const Account* account = accounts_.Find(Trimmed(fields[0]));
  const Team* team = teams_.TeamOf(player.name());
  if (team == nullptr || account == nullptr || teams_.TeamOf(account->name) != team) {
    Refuse(player, "You can kick members of your own team alone: choose the line of one.");
    return;
  }
  const bool leaves = account->name == player.name();
  if (!leaves && team->leader() != player.name()) {
    Refuse(player, "Only " + team->leader() + ", who leads the team, may kick others from it.");
    return;
  }
  SendToTeam(*team, player.name(), leaves ? "has left the team" : "has kicked " + account->name);
  teams_.Remove(account->name);
  TeamsChanged(player);
}

void Lobby::TeamChat(Player& player, std::string_view arguments) {
  const Team* team = teams_.TeamOf(player.name());
  if (team == nullptr) {
    Refuse(player, "You are in no team. The window \"Tournament\" lets you create or join one.");
    return;
  }
  if (arguments.empty()) {
    Refuse(player, "Type /team and what you want to say to your team.");
    return;
  }
  SendToTeam(*team, player.name(), arguments);
}

void Lobby::TeamsChanged(Player& by) {
  SendTournamentInfo(by, {});
  SendTeamList(by, {});
  online_list_changed_ = true;
}

void Lobby::SendToTeam(const Team& team, std::string_view speaker, std::string_view words) {
  const std::string line =
      messages::ChatLine(MessageKind::Team, team.name + " - " + std::string(speaker), words);
  for (const std::string& member : team.members) {
    if (const Player* online = Find(member)) {
      Send(*online, line);
    }
  }
}

}  // namespace korvanta::practice

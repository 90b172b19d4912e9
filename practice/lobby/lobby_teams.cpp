/// The lobby's side of teams and tournaments: joining, leaving, lists and team chat.
#include <string>
#include <utility>
#include <vector>

#include "practice/lobby/lobby.h"
#include "practice/wire/player_text.h"

namespace korvanta::practice {
namespace {

/// Points of Total Score.
constexpr int kHighestFee = 1'000'000;

}  // namespace

void Lobby::SendTournamentInfo(Player& player) {
  std::vector<std::string_view> names;
  for (const Team& team : tournament_.teams.all()) {
    names.emplace_back(team.name);
  }
  players_.Send(player, messages::TournamentInfo(tournament_.Figures()));
  players_.Send(player, messages::TeamNames(names));
}

void Lobby::SendTeamList(Player& player) {
  std::vector<std::string> lines;
  for (const Team& team : tournament_.teams.all()) {
    lines.push_back("Team " + team.name + ", led by " + team.leader());
    for (const std::string& member : team.members) {
      lines.push_back("    " + member);
    }
  }
  players_.Send(player, messages::TeamList(lines));
}

bool Lobby::MayManage(Player& player) {
  if (!player.account->IsAdministrator()) {
    players_.Refuse(player, "Only an administrator may manage tournaments.");
    return false;
  }
  return true;
}

void Lobby::StartTournament(Player& player, const Fields& fields) {
  if (!MayManage(player)) {
    return;
  }
  const auto fee = NumberWithin(Trimmed(fields[0]), 0, kHighestFee);
  const auto teams = NumberWithin(Trimmed(fields[1]), 2, static_cast<int>(kMostTeams));
  const auto members = NumberWithin(Trimmed(fields[2]), 2, Tournament::kMostPlayers);
  if (!fee || !teams || !members) {
    players_.Refuse(player, "A tournament takes an entry fee of 0 to " +
                                std::to_string(kHighestFee) + ", 2 to " +
                                std::to_string(kMostTeams) + " teams and 2 to " +
                                std::to_string(Tournament::kMostPlayers) + " players.");
    return;
  }
  if (tournament_.is_open) {
    players_.Refuse(player, "There is a tournament already; end it first.");
    return;
  }
  const TournamentFigures figures = tournament_.Figures();
  if (figures.teams > static_cast<std::size_t>(*teams) ||
      figures.players > static_cast<std::size_t>(*members)) {
    players_.Refuse(player, "There are more teams or players in teams already.");
    return;
  }
  tournament_.is_open = true;
  tournament_.entry_fee = *fee;
  tournament_.max_teams = *teams;
  tournament_.max_players = *members;
  players_.AnnounceToAll("A tournament is open for " + std::to_string(*teams) + " teams and " +
                         std::to_string(*members) + " players, entry fee " + std::to_string(*fee) +
                         ". Create or join a team in the tournament window!");
  SendTournamentInfo(player);
}

void Lobby::SetTournamentGame(Player& player) {
  if (!MayManage(player)) {
    return;
  }
  if (!tournament_.is_open) {
    players_.Refuse(player, "There is no tournament; start one first.");
  } else if (tournament_.teams.all().size() < 2) {
    players_.Refuse(player, "A tournament game takes two teams at least.");
  } else if (std::exchange(tournament_.is_game_set, true)) {
    players_.Refuse(player, "The next game is the tournament game already.");
  } else {
    players_.AnnounceToAll(
        "The next game is the tournament game: members of teams alone take "
        "part.");
  }
}

void Lobby::EndTournament(Player& player) {
  if (!MayManage(player)) {
    return;
  }
  if (!tournament_.is_open) {
    players_.Refuse(player, "There is no tournament to end.");
    return;
  }
  tournament_.End();
  players_.AnnounceToAll("The tournament is over.");
  SendTournamentInfo(player);
}

void Lobby::JoinTeam(Player& player, std::string_view team, std::string_view password) {
  const std::int64_t score = player.account->figures.score;
  if (score < tournament_.entry_fee) {
    players_.Refuse(player, "The entry fee is " + std::to_string(tournament_.entry_fee) +
                                " points of Total Score, and you have " + std::to_string(score) +
                                ".");
    return;
  }
  switch (tournament_.Join(player.name(), team, password)) {
    case Teams::Joining::Created:
      players_.Answer(player,
                      "You lead the new team. Others join it with its name and password; /team "
                      "speaks to its members alone.");
      break;
    case Teams::Joining::Joined:
      SendToTeam(*tournament_.teams.TeamOf(player.name()), player.name(), "has joined the team");
      break;
    case Teams::Joining::InTeamAlready:
      players_.Refuse(player, "You are in the team " +
                                  tournament_.teams.TeamOf(player.name())->name +
                                  ". Leave it first: kick yourself in the list of teams.");
      return;
    case Teams::Joining::WrongPassword:
      players_.Refuse(player, "That team exists and its password is another.");
      return;
    case Teams::Joining::BadName:
      players_.Refuse(player, "A team's name has 1 to " + std::to_string(kLongestTeamName) +
                                  " characters and no colon.");
      return;
    case Teams::Joining::BadPassword:
      players_.Refuse(player, "A team's password has 1 to " + std::to_string(kLongestPassword) +
                                  " characters.");
      return;
    case Teams::Joining::NoRoom:
      players_.Refuse(player, "There is no room for another team or player.");
      return;
  }
  TeamsChanged(player);
}

void Lobby::DisbandTeam(Player& player) {
  const Team* team = tournament_.teams.TeamOf(player.name());
  if (team == nullptr) {
    players_.Refuse(player, "You are in no team.");
    return;
  }
  if (team->leader() != player.name()) {
    players_.Refuse(player, "Only " + team->leader() +
                                ", who leads the team, may disband it. To leave it, "
                                "kick yourself in the list of teams.");
    return;
  }
  SendToTeam(*team, player.name(), "has disbanded the team");
  tournament_.teams.Disband(player.name());
  TeamsChanged(player);
}

void Lobby::KickFromTeam(Player& player, std::string_view name) {
  const Account* account = accounts_.Find(Trimmed(name));
  const Team* team = tournament_.teams.TeamOf(player.name());
  if (team == nullptr || account == nullptr || tournament_.teams.TeamOf(account->name) != team) {
    players_.Refuse(player, "You can kick members of your own team alone: choose the line of one.");
    return;
  }
  const bool leaves = account->name == player.name();
  if (!leaves && team->leader() != player.name()) {
    players_.Refuse(player,
                    "Only " + team->leader() + ", who leads the team, may kick others from it.");
    return;
  }
  SendToTeam(*team, player.name(), leaves ? "has left the team" : "has kicked " + account->name);
  tournament_.teams.Remove(account->name);
  TeamsChanged(player);
}

void Lobby::TeamChat(Player& player, std::string_view arguments) {
  const Team* team = tournament_.teams.TeamOf(player.name());
  if (team == nullptr) {
    players_.Refuse(player,
                    "You are in no team. The window \"Tournament\" lets you create or join one.");
    return;
  }
  if (arguments.empty()) {
    players_.Refuse(player, "Type /team and what you want to say to your team.");
    return;
  }
  SendToTeam(*team, player.name(), arguments);
}

void Lobby::TeamsChanged(Player& by) {
  SendTournamentInfo(by);
  SendTeamList(by);
  players_.ListChanges();
}

void Lobby::SendToTeam(const Team& team, std::string_view speaker, std::string_view words) {
  const std::string line =
      messages::ChatLine(MessageKind::Team, team.name + " - " + std::string(speaker), words);
  for (const std::string& member : team.members) {
    if (const Player* online = players_.Find(member)) {
      players_.Send(*online, line);
    }
  }
}

}  // namespace korvanta::practice

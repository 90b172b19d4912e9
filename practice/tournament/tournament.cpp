#include "practice/tournament/tournament.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "practice/base/player_text.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

constexpr std::size_t kLongestTeamName = 20;
constexpr int kHighestFee = 1'000'000;

bool HasMember(const Team& team, std::string_view player) {
  return std::any_of(team.members.begin(), team.members.end(),
                     [&](const std::string& member) { return EqualIgnoringCase(member, player); });
}

}  // namespace

Refusal Tournament::Open(std::string_view entry_fee, std::string_view max_teams,
                         std::string_view max_players) {
  constexpr Terms kWidest;
  const auto fee = NumberWithin(TrimSpaces(entry_fee), 0, kHighestFee);
  const auto most_teams = NumberWithin(TrimSpaces(max_teams), 2, kWidest.max_teams);
  const auto most_players = NumberWithin(TrimSpaces(max_players), 2, kWidest.max_players);
  if (!fee || !most_teams || !most_players) {
    return Refusal::BadTerms;
  }
  const bool have_room = std::ssize(teams_) <= *most_teams && CountPlayers() <= *most_players;
  const Refusal refusal = *most_players < *most_teams ? Refusal::FewerPlayersThanTeams
                          : is_open_                  ? Refusal::TournamentOpenAlready
                          : !have_room                ? Refusal::TooManyTeamsAlready
                                                      : Refusal::None;
  if (refusal == Refusal::None) {
    is_open_ = true;
    terms_ = {*fee, *most_teams, *most_players};
  }
  return refusal;
}

Refusal Tournament::SetGame() {
  return !is_open_                           ? Refusal::NoTournament
         : teams_.size() < 2                 ? Refusal::TooFewTeams
         : std::exchange(is_game_set_, true) ? Refusal::GameSetAlready
                                             : Refusal::None;
}

Refusal Tournament::End() {
  is_game_set_ = false;
  terms_ = {};
  return std::exchange(is_open_, false) ? Refusal::None : Refusal::NoTournament;
}

Refusal Tournament::Join(std::string_view player, std::string_view team_name,
                         std::string_view password) {
  const std::string_view name = TrimSpaces(team_name);
  const auto team = std::ranges::find_if(
      teams_, [&](const Team& known) { return EqualIgnoringCase(known.name, name); });
  const bool is_new = team == teams_.end();
  const bool is_full =
      CountPlayers() >= terms_.max_players || (is_new && std::ssize(teams_) >= terms_.max_teams);
  const bool is_name =
      !name.empty() && name.size() <= kLongestTeamName && name.find(':') == std::string_view::npos;
  const Refusal refusal = is_full                                 ? Refusal::NoRoomForTeam
                          : !is_name                              ? Refusal::BadTeamName
                          : !IsPassword(password)                 ? Refusal::BadTeamPassword
                          : TeamOf(player) != nullptr             ? Refusal::InTeamAlready
                          : !is_new && team->password != password ? Refusal::WrongTeamPassword
                                                                  : Refusal::None;
  if (refusal == Refusal::None && is_new) {
    teams_.push_back({std::string(name), std::string(password), {std::string(player)}});
  } else if (refusal == Refusal::None) {
    team->members.emplace_back(player);
  }
  return refusal;
}

void Tournament::Remove(std::string_view player) {
  for (Team& team : teams_) {
    std::erase_if(team.members,
                  [&](const std::string& member) { return EqualIgnoringCase(member, player); });
  }
  std::erase_if(teams_, [](const Team& team) { return team.members.empty(); });
}

void Tournament::Disband(std::string_view player) {
  std::erase_if(teams_, [&](const Team& team) { return HasMember(team, player); });
}

const Team* Tournament::TeamOf(std::string_view player) const {
  const auto team = std::find_if(teams_.begin(), teams_.end(),
                                 [&](const Team& known) { return HasMember(known, player); });
  return team == teams_.end() ? nullptr : &*team;
}

std::ptrdiff_t Tournament::CountPlayers() const {
  return std::transform_reduce(teams_.begin(), teams_.end(), std::ptrdiff_t{0}, std::plus(),
                               [](const Team& team) { return std::ssize(team.members); });
}

void TournamentDesk::SendInfo(const Player& player) {
  const int fee = tournament_.terms().entry_fee;
  const std::int64_t members = tournament_.CountPlayers();
  std::vector<std::string_view> names;
  names.reserve(tournament_.teams().size());
  for (const Team& team : tournament_.teams()) {
    names.emplace_back(team.name);
  }
  const auto purse = members * fee;
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

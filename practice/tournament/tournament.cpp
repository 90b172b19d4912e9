#include "practice/tournament/tournament.h"

#include <algorithm>
#include <utility>

#include "practice/base/player_text.h"

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
  if (*most_players < *most_teams) {
    return Refusal::FewerPlayersThanTeams;
  }
  if (is_open_) {
    return Refusal::TournamentOpenAlready;
  }
  if (std::ssize(teams_) > *most_teams ||
      CountPlayers() > static_cast<std::size_t>(*most_players)) {
    return Refusal::TooManyTeamsAlready;
  }
  is_open_ = true;
  terms_ = {*fee, *most_teams, *most_players};
  return Refusal::None;
}

Refusal Tournament::SetGame() {
  if (!is_open_) {
    return Refusal::NoTournament;
  }
  if (teams_.size() < 2) {
    return Refusal::TooFewTeams;
  }
  return std::exchange(is_game_set_, true) ? Refusal::GameSetAlready : Refusal::None;
}

Refusal Tournament::End() {
  is_game_set_ = false;
  terms_ = {};
  return std::exchange(is_open_, false) ? Refusal::None : Refusal::NoTournament;
}

Refusal Tournament::Join(std::string_view player, std::string_view team_name,
                         std::string_view password) {
  const std::string_view name = TrimSpaces(team_name);
  const Team* team = Find(name);
  if (CountPlayers() >= static_cast<std::size_t>(terms_.max_players) ||
      (team == nullptr && std::ssize(teams_) >= terms_.max_teams)) {
    return Refusal::NoRoomForTeam;
  }
  if (name.empty() || name.size() > kLongestTeamName || name.find(':') != std::string_view::npos) {
    return Refusal::BadTeamName;
  }
  if (!IsPassword(password)) {
    return Refusal::BadTeamPassword;
  }
  if (TeamOf(player) != nullptr) {
    return Refusal::InTeamAlready;
  }
  if (team == nullptr) {
    teams_.push_back({std::string(name), std::string(password), {std::string(player)}});
    return Refusal::None;
  }
  if (team->password != password) {
    return Refusal::WrongTeamPassword;
  }
  teams_[static_cast<std::size_t>(team - teams_.data())].members.emplace_back(player);
  return Refusal::None;
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

const Team* Tournament::Find(std::string_view team_name) const {
  const auto team = std::find_if(teams_.begin(), teams_.end(), [&](const Team& known) {
    return EqualIgnoringCase(known.name, TrimSpaces(team_name));
  });
  return team == teams_.end() ? nullptr : &*team;
}

std::size_t Tournament::CountPlayers() const {
  std::size_t players = 0;
  for (const Team& team : teams_) {
    players += team.members.size();
  }
  return players;
}

}  // namespace korvanta::practice

#include "practice/tournament/teams.h"

#include <algorithm>

#include "base/trim.h"
#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

constexpr std::size_t kLongestTeamName = 20;

bool HasMember(const Team& team, std::string_view player) {
  return std::any_of(team.members.begin(), team.members.end(),
                     [&](const std::string& member) { return NameKey(member) == NameKey(player); });
}

}  // namespace

Refusal Teams::Join(std::string_view player, std::string_view team_name,
                    std::string_view password) {
  const std::string_view name = TrimSpaces(team_name);
  if (name.empty() || name.size() > kLongestTeamName || name.find(':') != std::string_view::npos) {
    return Refusal::BadTeamName;
  }
  if (!IsPassword(password)) {
    return Refusal::BadTeamPassword;
  }
  if (TeamOf(player) != nullptr) {
    return Refusal::InTeamAlready;
  }
  if (auto* team = const_cast<Team*>(Find(name)); team != nullptr) {
    if (team->password != password) {
      return Refusal::WrongTeamPassword;
    }
    team->members.emplace_back(player);
    return Refusal::None;
  }
  if (teams_.size() >= kMostTeams) {
    return Refusal::NoRoomForTeam;
  }
  teams_.push_back({std::string(name), std::string(password), {std::string(player)}});
  return Refusal::None;
}

void Teams::Remove(std::string_view player) {
  for (Team& team : teams_) {
    std::erase_if(team.members,
                  [&](const std::string& member) { return NameKey(member) == NameKey(player); });
  }
  std::erase_if(teams_, [](const Team& team) { return team.members.empty(); });
}

void Teams::Disband(std::string_view player) {
  std::erase_if(teams_, [&](const Team& team) { return HasMember(team, player); });
}

const Team* Teams::TeamOf(std::string_view player) const {
  const auto team = std::find_if(teams_.begin(), teams_.end(),
                                 [&](const Team& known) { return HasMember(known, player); });
  return team == teams_.end() ? nullptr : &*team;
}

const Team* Teams::Find(std::string_view team_name) const {
  const auto team = std::find_if(teams_.begin(), teams_.end(), [&](const Team& known) {
    return NameKey(known.name) == NameKey(TrimSpaces(team_name));
  });
  return team == teams_.end() ? nullptr : &*team;
}

std::size_t Teams::players() const {
  std::size_t players = 0;
  for (const Team& team : teams_) {
    players += team.members.size();
  }
  return players;
}

}  // namespace korvanta::practice

#include "practice/tournament/teams.h"

#include <algorithm>

#include "practice/wire/player_text.h"

namespace korvanta::practice {
namespace {

bool HasMember(const Team& team, std::string_view player) {
  return std::any_of(team.members.begin(), team.members.end(),
                     [&](const std::string& member) { return NameKey(member) == NameKey(player); });
}

}  // namespace

Teams::Joining Teams::Join(std::string_view player, std::string_view team_name,
                           std::string_view password) {
  const std::string_view name = Trimmed(team_name);
  if (name.empty() || name.size() > kLongestTeamName || name.find(':') != std::string_view::npos) {
    return Joining::BadName;
  }
  if (!IsPassword(password)) {
    return Joining::BadPassword;
  }
  if (TeamOf(player) != nullptr) {
    return Joining::InTeamAlready;
  }
  if (Team* team = const_cast<Team*>(Find(name)); team != nullptr) {
    if (team->password != password) {
      return Joining::WrongPassword;
    }
    team->members.emplace_back(player);
    return Joining::Joined;
  }
  if (teams_.size() >= kMostTeams) {
    return Joining::NoRoom;
  }
  teams_.push_back({std::string(name), std::string(password), {std::string(player)}});
  return Joining::Created;
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
    return NameKey(known.name) == NameKey(Trimmed(team_name));
  });
  return team == teams_.end() ? nullptr : &*team;
}

}  // namespace korvanta::practice

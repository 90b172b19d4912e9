/// The teams of one run: who made them and who is in them. Members are account names; they stay in
/// their team while they are offline.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "practice/words/sentences.h"

namespace korvanta::practice {

inline constexpr std::size_t kMostTeams = 1'000;

struct Team {
  std::string name;
  std::string password;
  std::vector<std::string> members;  ///< the leader first; never empty

  const std::string& leader() const { return members.front(); }
};

/// Names of players and teams count as the same in any letter case.
class Teams {
 public:
  /// Joins the team of that name, or makes it with the player as its leader. Spaces at the ends of
  /// the name do not count; it has 1 to 20 characters, none of them a colon.
  Refusal Join(std::string_view player, std::string_view team_name, std::string_view password);

  /// Takes the player out of the team; the next member leads when the leader goes, and the team
  /// ends with its last member. A player without a team is left alone.
  void Remove(std::string_view player);

  /// Ends the team that the player is in, whoever leads it.
  void Disband(std::string_view player);

  /// The team that the player is in; null without one. Valid until the next change.
  const Team* TeamOf(std::string_view player) const;

  /// By name in any letter case, without spaces at its ends; null when there is none. Valid until
  /// the next change.
  const Team* Find(std::string_view team_name) const;

  /// In the order in which they were made.
  const std::vector<Team>& all() const { return teams_; }
  /// Members of all teams.
  std::size_t players() const;

 private:
  std::vector<Team> teams_;
};

}  // namespace korvanta::practice

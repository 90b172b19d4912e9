/// The tournament: its terms, the teams that take part, and what players ask for and are answered.
/// Teams exist without one, too; they last for one run, and their members stay in them while they
/// are offline.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "practice/players/players.h"

namespace korvanta::practice {

struct Team {
  std::string name;
  std::string password;
  std::vector<const Account*> members;  ///< the leader first; never empty

  const Account& leader() const { return *members.front(); }
};

/// Names of teams count as the same in any letter case. A team that is handed out is valid until
/// the next change. Whoever asks for something is answered, if only by the reason why nothing was
/// done.
class Tournament {
 public:
  struct Terms {
    /// Points of Total Score that each player pays when a tournament game begins; the winners share
    /// what all have paid.
    int entry_fee = 0;
    int max_teams = 1'000;
    int max_players = 10'000;
  };

  /// Both must outlive the tournament.
  Tournament(Players& players, const Accounts& accounts) : players_(players), accounts_(accounts) {}

  bool IsOpen() const { return is_open_; }
  /// The next game is for teams alone.
  bool IsGameSet() const { return is_game_set_; }
  /// The game that was set has begun.
  void GameBegins() { is_game_set_ = false; }
  const Terms& terms() const { return terms_; }
  /// In the order in which they were made.
  const std::vector<Team>& teams() const { return teams_; }
  /// The team that it is in; null without one.
  const Team* TeamOf(const Account& account) const;

  /// The remark stands behind the number of players, which the tournament window shows as text.
  void SendInfo(const Player& player, std::string_view remark = {});
  void SendTeamList(const Player& player);

  // For administrators.
  /// Opens it within limits that texts give; one that is not a whole number is refused.
  void Open(const Player& player, std::string_view entry_fee, std::string_view max_teams,
            std::string_view max_players);
  /// Makes the next game one for teams alone.
  void SetGame(const Player& player);
  /// Ends it; the teams stay.
  void End(const Player& player);

  /// Joins the team of that name, or makes it with the player as its leader. Spaces at the ends of
  /// the name do not count; it has 1 to 20 characters, none of them a colon.
  void Join(const Player& player, std::string_view team_name, std::string_view password);
  /// Ends the player's team. Only its leader may.
  void Disband(const Player& player);
  /// Takes a member out of the player's team: the leader may kick any, and each member itself. The
  /// next member leads when the leader goes, and the team ends with its last member.
  void Kick(const Player& player, std::string_view name);
  /// What a member says to the team.
  void Say(const Player& player, std::string_view words);

 private:
  /// Members of all teams.
  std::ptrdiff_t CountPlayers() const;
  void SendBoth(const Player& player);
  void SayToTeam(const Team& team, const Player& speaker, std::string_view words);

  Players& players_;
  const Accounts& accounts_;
  bool is_open_ = false;
  bool is_game_set_ = false;
  Terms terms_;
  std::vector<Team> teams_;
};

}  // namespace korvanta::practice

/// The tournament: its terms, the teams that take part, and what players ask for and are answered.
/// Teams exist without one, too; they last for one run, and their members stay in them while they
/// are offline.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "practice/players/players.h"
#include "practice/words/sentences.h"

namespace korvanta::practice {

struct Team {
  std::string name;
  std::string password;
  std::vector<std::string> members;  ///< names of accounts, the leader first; never empty

  const std::string& leader() const { return members.front(); }
};

/// Names of players and teams count as the same in any letter case. A team that is handed out is
/// valid until the next change.
class Tournament {
 public:
  struct Terms {
    /// Points of Total Score that each player pays when a tournament game begins; the winners share
    /// what all have paid.
    int entry_fee = 0;
    int max_teams = 1'000;
    int max_players = 10'000;
  };

  /// Opens it within limits that texts give; one that is not a whole number is refused.
  Refusal Open(std::string_view entry_fee, std::string_view max_teams,
               std::string_view max_players);
  /// Makes the next game one for teams alone.
  Refusal SetGame();
  /// Ends it; the teams stay.
  Refusal End();
  /// The game that was set has begun.
  void GameBegins() { is_game_set_ = false; }

  bool IsOpen() const { return is_open_; }
  /// The next game is for teams alone.
  bool IsGameSet() const { return is_game_set_; }
  const Terms& terms() const { return terms_; }

  /// Joins the team of that name, or makes it with the player as its leader. Spaces at the ends of
  /// the name do not count; it has 1 to 20 characters, none of them a colon.
  Refusal Join(std::string_view player, std::string_view team_name, std::string_view password);
  /// Takes the player out of the team; the next member leads when the leader goes, and the team
  /// ends with its last member. A player without a team is left alone.
  void Remove(std::string_view player);
  /// Ends the team that the player is in, whoever leads it.
  void Disband(std::string_view player);

  /// The team that the player is in; null without one.
  const Team* TeamOf(std::string_view player) const;
  /// In the order in which they were made.
  const std::vector<Team>& teams() const { return teams_; }
  /// Members of all teams.
  std::ptrdiff_t CountPlayers() const;

 private:
  bool is_open_ = false;
  bool is_game_set_ = false;
  Terms terms_;
  std::vector<Team> teams_;
};

/// The tournament window and the talk of teams. Whoever asks is answered, if only by the reason why
/// nothing was done.
class TournamentDesk {
 public:
  /// All must outlive the desk.
  TournamentDesk(Players& players, const Accounts& accounts, Tournament& tournament)
      : players_(players), accounts_(accounts), tournament_(tournament) {}

  void SendInfo(const Player& player);
  void SendTeamList(const Player& player);

  // For administrators.
  void Start(const Player& player, std::string_view entry_fee, std::string_view max_teams,
             std::string_view max_players);
  void SetGame(const Player& player);
  void End(const Player& player);

  void Join(const Player& player, std::string_view team, std::string_view password);
  /// Only the leader may.
  void Disband(const Player& player);
  /// The leader may kick any member, and each member itself.
  void Kick(const Player& player, std::string_view name);
  /// What a member says to the team.
  void Say(const Player& player, std::string_view words);

 private:
  bool MayManage(const Player& player);
  void SendBoth(const Player& player);
  void SayToTeam(const Team& team, std::string_view speaker, std::string_view words);

  Players& players_;
  const Accounts& accounts_;
  Tournament& tournament_;
};

}  // namespace korvanta::practice

/// What players ask for in the tournament window, and what they are answered.
#pragma once

#include <string_view>

#include "practice/players/players.h"
#include "practice/tournament/tournament.h"

namespace korvanta::practice {

/// Whoever asks is answered, if only by the reason why nothing was done.
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

/// The tournament of the moment: its terms, and the teams that take part. Teams exist without a
/// tournament too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "practice/tournament/teams.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {

struct Tournament {
  static constexpr int kMostPlayers = 10'000;

  bool is_open = false;
  bool is_game_set = false;  ///< the next game is for teams alone
  /// Points of Total Score that each player pays when a tournament game begins; the winners share
  /// what all have paid.
  int entry_fee = 0;
  int max_teams = static_cast<int>(kMostTeams);
  int max_players = kMostPlayers;
  Teams teams{};

  TournamentFigures Figures() const;
  /// Teams::Join() within the terms.
  Teams::Joining Join(std::string_view player, std::string_view team, std::string_view password);
  /// Its terms are gone; the teams stay.
  void End();
};

}  // namespace korvanta::practice

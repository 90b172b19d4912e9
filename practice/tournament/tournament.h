/// The tournament: its terms, and the teams that take part. Teams exist without one, too.
#pragma once

#include <string_view>

#include "practice/tournament/teams.h"

namespace korvanta::practice {

struct Tournament {
  struct Terms {
    /// Points of Total Score that each player pays when a tournament game begins; the winners share
    /// what all have paid.
    int entry_fee = 0;
    int max_teams = static_cast<int>(kMostTeams);
    int max_players = 10'000;
  };

  bool is_open = false;
  bool is_game_set = false;  ///< the next game is for teams alone
  Terms terms{};
  Teams teams{};

  /// Opens it; a text that is not a whole number is refused.
  Refusal Open(std::string_view entry_fee, std::string_view max_teams,
               std::string_view max_players);
  /// Makes the next game one for teams alone.
  Refusal SetGame();
  /// Ends it; the teams stay.
  Refusal End();
  /// Teams::Join() within the terms.
  Refusal Join(std::string_view player, std::string_view team, std::string_view password);
};

}  // namespace korvanta::practice

#include "practice/tournament/tournament.h"

#include <numeric>
#include <utility>

namespace korvanta::practice {

TournamentFigures Tournament::Figures() const {
  const std::size_t players =
      std::transform_reduce(teams.all().begin(), teams.all().end(), std::size_t{0}, std::plus{},
                            [](const Team& team) { return team.members.size(); });
  return {entry_fee, entry_fee * static_cast<std::int64_t>(players), teams.all().size(), players};
}

Teams::Joining Tournament::Join(std::string_view player, std::string_view team,
                                std::string_view password) {
  const TournamentFigures figures = Figures();
  if (figures.players >= static_cast<std::size_t>(max_players) ||
      (figures.teams >= static_cast<std::size_t>(max_teams) && teams.Find(team) == nullptr)) {
    return Teams::Joining::NoRoom;
  }
  return teams.Join(player, team, password);
}

void Tournament::End() {
  Teams kept = std::move(teams);
  *this = Tournament{};
  teams = std::move(kept);
}

}  // namespace korvanta::practice

#include "practice/tournament/tournament.h"

#include <utility>

#include "base/trim.h"
#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

constexpr int kHighestFee = 1'000'000;

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
  if (is_open) {
    return Refusal::TournamentOpenAlready;
  }
  if (teams.all().size() > static_cast<std::size_t>(*most_teams) ||
      teams.players() > static_cast<std::size_t>(*most_players)) {
    return Refusal::TooManyTeamsAlready;
  }
  is_open = true;
  terms = {*fee, *most_teams, *most_players};
  return Refusal::None;
}

Refusal Tournament::SetGame() {
  if (!is_open) {
    return Refusal::NoTournament;
  }
  if (teams.all().size() < 2) {
    return Refusal::TooFewTeams;
  }
  return std::exchange(is_game_set, true) ? Refusal::GameSetAlready : Refusal::None;
}

Refusal Tournament::End() {
  if (!is_open) {
    return Refusal::NoTournament;
  }
  is_open = false;
  is_game_set = false;
  terms = {};
  return Refusal::None;
}

Refusal Tournament::Join(std::string_view player, std::string_view team,
                         std::string_view password) {
  if (teams.players() >= static_cast<std::size_t>(terms.max_players) ||
      (teams.all().size() >= static_cast<std::size_t>(terms.max_teams) &&
       teams.Find(team) == nullptr)) {
    return Refusal::NoRoomForTeam;
  }
  return teams.Join(player, team, password);
}

}  // namespace korvanta::practice

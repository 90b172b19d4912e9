#include "protocol/message_catalogue.h"

#include "protocol/wire_format.h"

namespace korvanta::outbound {
namespace {

/// Some messages end their last field with a separator: an empty field stands behind it.
constexpr std::string_view kEmptyField;

}  // namespace

std::string Login(std::string_view version, std::string_view user_name, std::string_view password) {
  return BuildMessage("[con]", {version, user_name, password});
}

std::string Disconnect() { return BuildMessage("[dis]"); }

std::string KeepAlive() { return BuildMessage("[p]"); }

std::string ChatLine(std::string_view line) { return BuildMessage("[ctc]", {line}); }

std::string FormAlliance(std::string_view player) { return BuildMessage("[aly]", {player}); }

std::string AttackPlayer(std::string_view player) { return BuildMessage("[att]", {player}); }

std::string LookUpStatistics(std::string_view player) { return BuildMessage("[bre]", {player}); }

std::string EnterGame() { return BuildMessage("[jon]"); }

std::string TopicInformation(std::int16_t topic) {
  return BuildMessage("[inf]", {std::to_string(topic)});
}

std::string ResearchTopic(std::int16_t topic, std::int16_t level) {
  return BuildMessage("[upg]", {std::to_string(topic), std::to_string(level), kEmptyField});
}

std::string RequestNews() { return BuildMessage("[nws]"); }

std::string RequestTournamentInfo() { return BuildMessage("[tif]"); }

std::string RequestTeamList() { return BuildMessage("[ttm]"); }

std::string StartTournament(std::string_view entry_fee, std::string_view max_teams,
                            std::string_view max_players) {
  return BuildMessage("[tcr]", {entry_fee, max_teams, max_players, kEmptyField});
}

std::string SetTournamentGame() { return BuildMessage("[tst]"); }

std::string EndTournament() { return BuildMessage("[ted]"); }

std::string JoinTeam(std::string_view team_name, std::string_view team_password) {
  return BuildMessage("[tjo]", {team_name, team_password, kEmptyField});
}

std::string DisbandTeam() { return BuildMessage("[tdb]"); }

std::string KickPlayer(std::string_view team_list_entry) {
  return BuildMessage("[tkp]", {team_list_entry});
}

}  // namespace korvanta::outbound

#include "protocol/message_catalogue.h"

#include "protocol/message_table.h"

namespace korvanta::outbound {
namespace {

std::string CodeText(TopicCode topic) { return std::to_string(static_cast<std::int16_t>(topic)); }

}  // namespace

std::string Login(std::string_view version, std::string_view user_name, std::string_view password) {
  return BuildMessage<ClientMessage::Login>(version, user_name, password);
}

std::string Disconnect() { return BuildMessage<ClientMessage::Disconnect>(); }

std::string KeepAlive() { return BuildMessage<ClientMessage::KeepAlive>(); }

std::string ChatLine(std::string_view line) { return BuildMessage<ClientMessage::ChatLine>(line); }

std::string FormAlliance(std::string_view player) {
  return BuildMessage<ClientMessage::FormAlliance>(player);
}

std::string AttackPlayer(std::string_view player) {
  return BuildMessage<ClientMessage::AttackPlayer>(player);
}

std::string LookUpStatistics(std::string_view player) {
  return BuildMessage<ClientMessage::LookUpStatistics>(player);
}

std::string EnterGame() { return BuildMessage<ClientMessage::EnterGame>(); }

std::string TopicInformation(TopicCode topic) {
  return BuildMessage<ClientMessage::TopicInformation>(CodeText(topic));
}

std::string ResearchTopic(TopicCode topic, std::int16_t level) {
  return BuildMessage<ClientMessage::ResearchTopic>(CodeText(topic), std::to_string(level));
}

std::string RequestNews() { return BuildMessage<ClientMessage::RequestNews>(); }

std::string RequestTournamentInfo() { return BuildMessage<ClientMessage::RequestTournamentInfo>(); }

std::string RequestTeamList() { return BuildMessage<ClientMessage::RequestTeamList>(); }

std::string StartTournament(std::string_view entry_fee, std::string_view max_teams,
                            std::string_view max_players) {
  return BuildMessage<ClientMessage::StartTournament>(entry_fee, max_teams, max_players);
}

std::string SetTournamentGame() { return BuildMessage<ClientMessage::SetTournamentGame>(); }

std::string EndTournament() { return BuildMessage<ClientMessage::EndTournament>(); }

std::string JoinTeam(std::string_view team_name, std::string_view team_password) {
  return BuildMessage<ClientMessage::JoinTeam>(team_name, team_password);
}

std::string DisbandTeam() { return BuildMessage<ClientMessage::DisbandTeam>(); }

std::string KickPlayer(std::string_view team_list_entry) {
  return BuildMessage<ClientMessage::KickPlayer>(team_list_entry);
}

}  // namespace korvanta::outbound

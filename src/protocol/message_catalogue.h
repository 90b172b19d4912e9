/// The messages that a client may send, one function each. Each returns the whole message, ready
/// for one send; texts are neither escaped nor checked. This client never sends the keep-alive.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/message_table.h"
#include "protocol/topic_code.h"

namespace korvanta::outbound {

inline std::string Login(std::string_view version, std::string_view user_name,
                         std::string_view password) {
  return BuildMessage<ClientMessage::Login>(version, user_name, password);
}
inline std::string Disconnect() { return BuildMessage<ClientMessage::Disconnect>(); }
inline std::string KeepAlive() { return BuildMessage<ClientMessage::KeepAlive>(); }
inline std::string ChatLine(std::string_view line) {
  return BuildMessage<ClientMessage::ChatLine>(line);
}
inline std::string FormAlliance(std::string_view player) {
  return BuildMessage<ClientMessage::FormAlliance>(player);
}
inline std::string AttackPlayer(std::string_view player) {
  return BuildMessage<ClientMessage::AttackPlayer>(player);
}
inline std::string LookUpStatistics(std::string_view player) {
  return BuildMessage<ClientMessage::LookUpStatistics>(player);
}
inline std::string EnterGame() { return BuildMessage<ClientMessage::EnterGame>(); }
inline std::string TopicInformation(TopicCode topic) {
  return BuildMessage<ClientMessage::TopicInformation>(
      std::to_string(static_cast<std::int16_t>(topic)));
}
inline std::string ResearchTopic(TopicCode topic, std::int16_t level) {
  return BuildMessage<ClientMessage::ResearchTopic>(
      std::to_string(static_cast<std::int16_t>(topic)), std::to_string(level));
}
inline std::string RequestNews() { return BuildMessage<ClientMessage::RequestNews>(); }
inline std::string RequestTournamentInfo() {
  return BuildMessage<ClientMessage::RequestTournamentInfo>();
}
inline std::string RequestTeamList() { return BuildMessage<ClientMessage::RequestTeamList>(); }
inline std::string StartTournament(std::string_view entry_fee, std::string_view max_teams,
                                   std::string_view max_players) {
  return BuildMessage<ClientMessage::StartTournament>(entry_fee, max_teams, max_players);
}
inline std::string SetTournamentGame() { return BuildMessage<ClientMessage::SetTournamentGame>(); }
inline std::string EndTournament() { return BuildMessage<ClientMessage::EndTournament>(); }
inline std::string JoinTeam(std::string_view team_name, std::string_view team_password) {
  return BuildMessage<ClientMessage::JoinTeam>(team_name, team_password);
}
inline std::string DisbandTeam() { return BuildMessage<ClientMessage::DisbandTeam>(); }
inline std::string KickPlayer(std::string_view team_list_entry) {
  return BuildMessage<ClientMessage::KickPlayer>(team_list_entry);
}

}  // namespace korvanta::outbound

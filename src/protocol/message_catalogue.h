/// Every message that a client may send, one function each, in catalogue order; this one never
/// sends the keep-alive by itself. Each returns the whole message, ready for one send; texts go out
/// as they stand, nothing is escaped or checked.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/topic_code.h"

namespace korvanta::outbound {

std::string Login(std::string_view version, std::string_view user_name, std::string_view password);
std::string Disconnect();
std::string KeepAlive();
std::string ChatLine(std::string_view line);
std::string FormAlliance(std::string_view player);
std::string AttackPlayer(std::string_view player);
std::string LookUpStatistics(std::string_view player);
std::string EnterGame();
std::string TopicInformation(TopicCode topic);
std::string ResearchTopic(TopicCode topic, std::int16_t level);
std::string RequestNews();
std::string RequestTournamentInfo();
std::string RequestTeamList();
std::string StartTournament(std::string_view entry_fee, std::string_view max_teams,
                            std::string_view max_players);
std::string SetTournamentGame();
std::string EndTournament();
std::string JoinTeam(std::string_view team_name, std::string_view team_password);
std::string DisbandTeam();
std::string KickPlayer(std::string_view team_list_entry);

}  // namespace korvanta::outbound

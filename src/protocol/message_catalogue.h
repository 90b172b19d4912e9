/// Every message that a client may send, one function each, in catalogue order; this one never
/// sends the keep-alive by itself. Each returns the whole message, ready for one send; texts go out
/// as they stand, nothing is escaped or checked.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvanta::outbound {

std::string Login(std::string_view version, std::string_view user_name,
                  std::string_view password);                       // [con]
std::string Disconnect();                                           // [dis]
std::string KeepAlive();                                            // [p]
std::string ChatLine(std::string_view line);                        // [ctc]
std::string FormAlliance(std::string_view player);                  // [aly]
std::string AttackPlayer(std::string_view player);                  // [att]
std::string LookUpStatistics(std::string_view player);              // [bre]
std::string EnterGame();                                            // [jon]
std::string TopicInformation(std::int16_t topic);                   // [inf]
std::string ResearchTopic(std::int16_t topic, std::int16_t level);  // [upg]
std::string RequestNews();                                          // [nws]
std::string RequestTournamentInfo();                                // [tif]
std::string RequestTeamList();                                      // [ttm]
std::string StartTournament(std::string_view entry_fee, std::string_view max_teams,
                            std::string_view max_players);                         // [tcr]
std::string SetTournamentGame();                                                   // [tst]
std::string EndTournament();                                                       // [ted]
std::string JoinTeam(std::string_view team_name, std::string_view team_password);  // [tjo]
std::string DisbandTeam();                                                         // [tdb]
std::string KickPlayer(std::string_view team_list_entry);                          // [tkp]

}  // namespace korvanta::outbound

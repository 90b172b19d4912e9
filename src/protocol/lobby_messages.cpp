/// Handlers of the messages that fill the online list and the side windows: each hands its payload
/// to whoever owns what it fills.
#include "protocol/inbound_handlers.h"

namespace korvanta::inbound {

void Statistics(InboundTargets& targets, std::string_view payload) {
  targets.lobby.ShowUserStatistics(payload);
}

void News(InboundTargets& targets, std::string_view payload) { targets.lobby.ShowNews(payload); }

void OnlineList(InboundTargets& targets, std::string_view payload) {
  targets.lobby.ShowOnlineList(payload);
}

void TournamentInfo(InboundTargets& targets, std::string_view payload) {
  targets.lobby.ShowTournamentInfo(payload);
}

void TeamList(InboundTargets& targets, std::string_view payload) {
  targets.lobby.ShowTeamList(payload);
}

void TeamNames(InboundTargets& targets, std::string_view payload) {
  targets.lobby.ShowTeamNames(payload);
}

}  // namespace korvanta::inbound

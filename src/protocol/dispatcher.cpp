#include "protocol/dispatcher.h"

#include <exception>

#include "protocol/field_reading.h"
#include "protocol/message_table.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

void Handle(const InboundTargets& targets, ServerMessage message, std::string_view payload) {
  switch (message) {
    case ServerMessage::LoginAccepted:
      return targets.connection.AcceptLogin(payload);
    case ServerMessage::LoginNotice:
      return inbound::LoginNotice(targets, payload);
    case ServerMessage::Caption:
      return;
    case ServerMessage::GameClock:
    case ServerMessage::GamePause:
      return targets.clock.StartGameClock(ToInt16(ReadLeadingNumber(payload)));
    case ServerMessage::Sound:
      return inbound::Sound(targets, payload);
    case ServerMessage::Statistics:
      return targets.statistics.ShowUserStatistics(payload);
    case ServerMessage::TopicResearched:
    case ServerMessage::TopicAttacked:
      return inbound::TopicLevel(targets, payload);
    case ServerMessage::BoardCleared:
    case ServerMessage::TournamentBoardCleared:
      return inbound::BoardCleared(targets);
    case ServerMessage::ResearchPoints:
      return targets.board.ShowResearchPoints(ReadLeadingNumber(payload));
    case ServerMessage::ChatLine:
      return inbound::ChatLine(targets, payload);
    case ServerMessage::News:
      return targets.news.ShowNews(payload);
    case ServerMessage::OnlineList:
      return targets.online_list.ShowOnlineList(payload);
    case ServerMessage::TournamentInfo:
      return targets.tournament.ShowTournamentInfo(payload);
    case ServerMessage::TeamList:
      return targets.tournament.ShowTeamList(payload);
    case ServerMessage::TeamNames:
      return targets.tournament.ShowTeamNames(payload);
  }
}

/// Every piece is tested for every tag: after a match, the remaining tests look at its payload.
void HandlePiece(const InboundTargets& targets, std::string_view message) {
  for (const auto& row : kServerMessages) {
    // All tags of a server have the same length; a constant length spares a call per test.
    if (message.starts_with(std::string_view(row.tag.data(), kTagLength))) {
      if (row.layout != Layout::Ignored) {
        message.remove_prefix(kTagLength);
      }
      Handle(targets, row.message, message);
    }
  }
}

}  // namespace

void Dispatcher::HandleBlock(std::string_view block) {
  try {
    for (std::string_view piece : Split(block, kMessageTerminator)) {
      HandlePiece(targets_, piece);
    }
  } catch (const std::exception&) {
    // A malformed message, or one that exhausted the memory: the rest of the block is dropped.
  }
}

}  // namespace korvanta

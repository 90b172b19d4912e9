/// The handlers of inbound messages; the dispatcher calls them.
#pragma once

#include <string_view>

#include "platform/sound_player.h"
#include "protocol/connection.h"
#include "protocol/options.h"
#include "protocol/receivers.h"

namespace korvanta {

/// What the handlers read and change.
struct InboundTargets {
  Connection& connection;
  const Options& options;
  ChatOutput& chat;
  const ChatFilter& filter;
  SoundPlayer& sounds;
  GameDisplay& game;
  LobbyDisplay& lobby;
};

/// Each takes the payload and raises MessageError when it is broken; what was done before stays
/// done.
namespace inbound {

void LoginAccepted(InboundTargets& targets, std::string_view payload);
void LoginNotice(InboundTargets& targets, std::string_view payload);
void GameClock(InboundTargets& targets, std::string_view payload);
void Sound(InboundTargets& targets, std::string_view payload);
void Statistics(InboundTargets& targets, std::string_view payload);
void TopicLevel(InboundTargets& targets, std::string_view payload);
void BoardCleared(InboundTargets& targets);
void ResearchPoints(InboundTargets& targets, std::string_view payload);
void ChatLine(InboundTargets& targets, std::string_view payload);
void News(InboundTargets& targets, std::string_view payload);
void OnlineList(InboundTargets& targets, std::string_view payload);
void TournamentInfo(InboundTargets& targets, std::string_view payload);
void TeamList(InboundTargets& targets, std::string_view payload);
void TeamNames(InboundTargets& targets, std::string_view payload);

}  // namespace inbound

}  // namespace korvanta

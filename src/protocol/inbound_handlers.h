/// The handlers of inbound messages, one a tag; the dispatcher's table names them in test order.
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

/// Each takes the payload (for "[clr]" and "[clt]" the message with its tag) and raises
/// MessageError when it is broken; what was done before stays done.
namespace inbound {

void LoginAccepted(InboundTargets& targets, std::string_view payload);   // [con]
void LoginNotice(InboundTargets& targets, std::string_view payload);     // [log]
void Caption(InboundTargets& targets, std::string_view payload);         // [cap]
void GameClock(InboundTargets& targets, std::string_view payload);       // [tim] [end]
void Sound(InboundTargets& targets, std::string_view payload);           // [sou]
void Statistics(InboundTargets& targets, std::string_view payload);      // [bre]
void TopicLevel(InboundTargets& targets, std::string_view payload);      // [upg] [att]
void BoardCleared(InboundTargets& targets, std::string_view message);    // [clr] [clt]
void ResearchPoints(InboundTargets& targets, std::string_view payload);  // [poi]
void ChatLine(InboundTargets& targets, std::string_view payload);        // [msg]
void News(InboundTargets& targets, std::string_view payload);            // [nws]
void OnlineList(InboundTargets& targets, std::string_view payload);      // [onl]
void TournamentInfo(InboundTargets& targets, std::string_view payload);  // [tif]
void TeamList(InboundTargets& targets, std::string_view payload);        // [ttm]
void TeamNames(InboundTargets& targets, std::string_view payload);       // [tdd]

}  // namespace inbound

}  // namespace korvanta

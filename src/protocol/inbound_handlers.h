/// The handlers of those messages that ask for more than one call on the thing they change. The
/// dispatcher calls them.
#pragma once

#include <string_view>

#include "platform/sound_player.h"
#include "protocol/connection.h"
#include "protocol/options.h"
#include "protocol/receivers.h"

namespace korvanta {

/// What messages change and the options that they depend on.
struct InboundTargets {
  Connection& connection;
  const Options& options;
  ChatOutput& chat;
  const ChatFilter& filter;
  SoundPlayer& sounds;
  ClockReceiver& clock;
  BoardReceiver& board;
  StatisticsReceiver& statistics;
  NewsReceiver& news;
  OnlineListReceiver& online_list;
  TournamentReceiver& tournament;
};

/// Each takes the payload and raises MessageError when it is broken.
namespace inbound {

void LoginNotice(const InboundTargets& targets, std::string_view payload);
void Sound(const InboundTargets& targets, std::string_view payload);
void TopicLevel(const InboundTargets& targets, std::string_view payload);
void BoardCleared(const InboundTargets& targets);
void ChatLine(const InboundTargets& targets, std::string_view payload);

}  // namespace inbound

}  // namespace korvanta

/// Handlers for the messages whose effect takes more than one call on a receiver. Called by the
/// dispatcher.
#pragma once

#include <string_view>

#include "platform/sound_player.h"
#include "protocol/connection.h"
#include "protocol/options.h"
#include "protocol/receivers.h"

namespace korvanta {

/// What inbound messages act on, and the options that they depend on.
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

/// Each throws MessageError for a malformed payload.
namespace inbound {

void LoginNotice(const InboundTargets& targets, std::string_view payload);
void Sound(const InboundTargets& targets, std::string_view payload);
void TopicLevel(const InboundTargets& targets, std::string_view payload);
void BoardCleared(const InboundTargets& targets);
void ChatLine(const InboundTargets& targets, std::string_view payload);

}  // namespace inbound

}  // namespace korvanta

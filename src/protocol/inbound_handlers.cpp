#include "protocol/inbound_handlers.h"

#include <algorithm>
#include <array>
#include <string>

#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"

namespace korvanta::inbound {
namespace {

/// Sound number n plays entry n - 1.
constexpr std::array<std::string_view, 6> kSoundFiles = {
    "sounds/gamestart.wav", "sounds/tick.wav",     "sounds/attack.wav",
    "sounds/attacked.wav",  "sounds/research.wav", "sounds/wingame.wav",
};

}  // namespace

void LoginNotice(const InboundTargets& targets, std::string_view payload) {
  if (!targets.options.mnuLogins) {
    targets.chat.AppendMessage(payload, MessageKind::Status);
  }
}

void Sound(const InboundTargets& targets, std::string_view payload) {
  if (!targets.options.mSounds) {
    return;
  }
  if (const auto* file = NumberedEntry(kSoundFiles, ReadNumber(payload))) {
    targets.sounds.Play(*file);
  }
}

void TopicLevel(const InboundTargets& targets, std::string_view payload) {
  const auto topic = static_cast<TopicCode>(ToInt16(ReadLeadingNumber(Field(payload, 0))));
  const std::int16_t level = ToInt16(ReadLeadingNumber(Field(payload, 1)));
  targets.board.ShowTopicLevel(topic, level);
}

void BoardCleared(const InboundTargets& targets) {
  targets.board.ShowClearedBoard();
  if (targets.options.mAuto) {
    targets.connection.SendIfSocketConnected(outbound::EnterGame());
  }
}

void ChatLine(const InboundTargets& targets, std::string_view payload) {
  FieldReader fields(payload);
  const std::string_view code = fields.Next();
  std::string_view text = fields.Next();
  ReadBoolean(fields.Next());
  std::string masked;
  if (targets.options.mnuFilter) {
    text = targets.filter.FilterLanguage(text, masked);
  }
  const auto match = std::ranges::find(kMessageKindCodes, code);
  if (match != kMessageKindCodes.end()) {
    targets.chat.AppendMessage(text, static_cast<MessageKind>(match - kMessageKindCodes.begin()));
  }
}

}  // namespace korvanta::inbound

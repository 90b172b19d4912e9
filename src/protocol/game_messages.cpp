/// Handlers of the messages that drive the research board, the points and the game clock.
#include "protocol/field_reading.h"
#include "protocol/inbound_handlers.h"
#include "protocol/message_catalogue.h"

namespace korvanta::inbound {

void GameClock(InboundTargets& targets, std::string_view payload) {
  targets.game.StartGameClock(ToInt16(ReadLeadingNumber(payload)));
}

void TopicLevel(InboundTargets& targets, std::string_view payload) {
  const std::int16_t topic = ToInt16(ReadLeadingNumber(Field(payload, 0)));
  const std::int16_t level = ToInt16(ReadLeadingNumber(Field(payload, 1)));
  targets.game.LightTopic(topic, level);
}

void BoardCleared(InboundTargets& targets) {
  targets.game.ResetBoard();
  if (targets.options.mAuto) {
    targets.connection.TrySend(outbound::EnterGame());
  }
}

void ResearchPoints(InboundTargets& targets, std::string_view payload) {
  targets.game.ShowResearchPoints(ReadLeadingNumber(payload));
}

}  // namespace korvanta::inbound

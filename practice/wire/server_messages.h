/// How the server builds its messages from values. Texts must hold no separators and no terminator;
/// nothing is escaped.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

#include "protocol/message_kind.h"
#include "protocol/message_table.h"

namespace korvanta::practice {

/// By its number on the wire.
enum class Sound { GameStart = 1, Tick, Attack, Attacked, Research, Win };

/// A text as it is, a number in decimal digits, an enumerator as its number.
template <typename Value>
std::string FieldText(const Value& value) {
  if constexpr (std::is_enum_v<Value>) {
    return std::to_string(static_cast<int>(value));
  } else if constexpr (std::is_arithmetic_v<Value>) {
    return std::to_string(value);
  } else {
    return std::string(value);
  }
}

/// The whole message with its fields in order.
template <ServerMessage message, typename... Values>
std::string Message(const Values&... values) {
  return BuildMessage<message>(std::string_view(FieldText(values))...);
}

/// A line for the message view, which colours it by its kind.
inline std::string ChatLine(MessageKind kind, std::string_view text) {
  // Clients read the Boolean and do nothing with it.
  return Message<ServerMessage::ChatLine>(kMessageKindCodes.at(static_cast<std::size_t>(kind)),
                                          text, "False");
}

/// "speaker: words", in two colours. The speaker's name must hold no colon.
inline std::string ChatLine(MessageKind kind, std::string_view speaker, std::string_view words) {
  return ChatLine(kind, std::string(speaker) + ": " + std::string(words));
}

/// The values, none of which is an empty text, with the separator between them.
template <typename Values>
std::string Joined(const Values& values, std::string_view separator) {
  std::string joined;
  for (const auto& value : values) {
    joined += joined.empty() ? std::string_view() : separator;
    joined += FieldText(value);
  }
  return joined;
}

/// A record of a message that has many; its first value must not be an empty text.
template <typename... Values>
std::string Record(const Values&... values) {
  return Joined(std::array{FieldText(values)...}, {&kFieldSeparator, 1});
}

}  // namespace korvanta::practice

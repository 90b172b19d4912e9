/// Reading of what clients send: messages are taken apart into fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/player_text.h"
#include "protocol/message_table.h"

namespace korvanta::practice {

struct ClientRequest {
  ClientMessage kind;
  /// As many as belong to the kind, control characters removed; fewer when it is not complete.
  std::vector<std::string> fields;
  bool is_complete = true;  ///< the message had all its fields
};

/// Nothing for a message that starts with no known tag. The single field of a message that has one
/// is everything behind its tag; behind the last of several fields, more are ignored.
inline std::optional<ClientRequest> ReadRequest(std::string_view message) {
  const auto* row = FindRow(kClientMessages, message);
  if (row == nullptr) {
    return std::nullopt;
  }
  ClientRequest request{row->message, {}};
  const std::string_view payload = message.substr(row->tag.size());
  const std::size_t count = row->fields.size();
  if (count == 1) {
    request.fields.push_back(WithoutControls(payload));
    return request;
  }
  for (std::string_view field : Split(payload, kFieldSeparator)) {
    if (request.fields.size() < count) {
      request.fields.push_back(WithoutControls(field));
    }
  }
  request.is_complete = request.fields.size() == count;
  return request;
}

}  // namespace korvanta::practice

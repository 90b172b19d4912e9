/// Reading of what clients send: one table of tags, each with the fields that belong to it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/message_table.h"

namespace korvanta::practice {

struct ClientRequest {
  ClientMessage kind;
  /// As many as belong to the kind, control characters removed. Empty when the message had too few.
  std::vector<std::string> fields;
  bool is_complete = true;  ///< the message had all its fields
};

/// Nothing for a message that starts with no known tag. The single field of a message that has one
/// is everything behind its tag; behind the last of several fields, more are ignored.
std::optional<ClientRequest> ReadRequest(std::string_view message);

}  // namespace korvanta::practice

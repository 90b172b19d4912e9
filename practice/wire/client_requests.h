/// Reading of what clients send: bytes are put together to messages, and messages taken apart into
/// fields.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/player_text.h"
#include "protocol/message_table.h"

namespace korvanta::practice {

/// Puts together whole messages from the bytes that arrive from one client, however they are cut.
class MessageStream {
 public:
  /// Characters of the longest message taken, its terminator not counted.
  static constexpr std::size_t kLongestMessage = std::size_t{64} * 1024;

  void Append(std::string_view bytes) { bytes_ += bytes; }
  /// The next whole message without its terminator; nothing when more bytes are needed, or when the
  /// stream is broken.
  std::optional<std::string> Next() {
    const std::size_t end = bytes_.find(kMessageTerminator);
    is_broken_ = std::min(end, bytes_.size()) > kLongestMessage;
    if (is_broken_ || end == std::string::npos) {
      return std::nullopt;
    }
    std::string message = bytes_.substr(0, end);
    bytes_.erase(0, end + 1);
    return message;
  }
  /// The next message is longer than the longest one taken, and nothing more can be read.
  bool IsBroken() const { return is_broken_; }

 private:
  std::string bytes_;
  bool is_broken_ = false;
};

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

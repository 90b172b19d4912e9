/// Reading of what clients send: bytes are put together to messages, and messages taken apart into
/// fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
  std::optional<std::string> Next();
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
std::optional<ClientRequest> ReadRequest(std::string_view message);

}  // namespace korvanta::practice

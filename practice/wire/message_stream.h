/// Puts together whole messages from the bytes that arrive from one client, however they are cut.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvanta::practice {

class MessageStream {
 public:
  /// Characters of the longest message taken, its terminator not counted.
  static constexpr std::size_t kLongestMessage = std::size_t{64} * 1024;

  void Append(std::string_view bytes);

  /// The next whole message without its terminator; nothing when more bytes are needed, or when the
  /// stream is broken.
  std::optional<std::string> Next();

  /// The next message is longer than the longest one taken, and nothing more can be read.
  bool IsBroken() const { return broken_; }

 private:
  std::string bytes_;
  std::size_t start_ = 0;    // of the message that Next() looks for
  std::size_t scanned_ = 0;  // no terminator lies between start_ and here
  bool broken_ = false;
};

}  // namespace korvanta::practice

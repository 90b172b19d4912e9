/// Cuts the stream of received bytes into the blocks that the client handles; the client socket is
/// its one user.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvanta {

/// A stream may be cut anywhere on its way, but a message that is handled in halves is lost. So
/// whole messages are due at once, and an unterminated rest waits a while for its continuation.
/// Time is passed in by the caller and never goes back.
class BlockAssembler {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// A block of several messages is never longer, so that one event stays short. A message that is
  /// longer by itself makes a block alone: its halves would be worth nothing.
  static constexpr std::size_t kBlockLimit = std::size_t{64} * 1024;
  /// Longest rest that waits, and so the longest block of all.
  static constexpr std::size_t kRestLimit = std::size_t{1024} * 1024;
  /// How long a rest waits after its last byte.
  static constexpr std::chrono::milliseconds kRestWait{250};

  void Add(std::string_view bytes, Time now);

  /// The next block that is due, empty when there is none. With `at_end` no more bytes will come
  /// and everything is due.
  std::string Take(Time now, bool at_end);

  /// A block is due whatever the time.
  bool HasBlock() const { return complete_ > 0 || bytes_.size() >= kRestLimit; }

  /// When the rest is due unless its continuation comes first; nothing while no rest waits.
  std::optional<Time> RestDue() const;

 private:
  std::size_t NextLength(Time now, bool at_end) const;

  std::string bytes_;
  std::size_t complete_ = 0;  ///< length of the whole messages at the start of `bytes_`
  Time last_byte_{};
};

}  // namespace korvanta

/// Cuts the stream of received bytes into the blocks that the client handles. Used by the client
/// socket.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvanta {

/// The bytes of one read are one block, even if it ends in the middle of a message. But the network
/// may split a long message. So when a read may have been split, the incomplete message at its end,
/// the remainder, is held back for a while until more of it arrives. The caller passes in the time,
/// which must not decrease.
class BlockAssembler {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Every network path carries a segment of this size whole: a shorter read was not split.
  static constexpr std::size_t kSmallestSegment = 536;
  /// The most that the caller adds at once: a read of this size was cut off there and continues in
  /// the next. It also limits a block of several messages, so that no event takes long; a single
  /// longer message is a block by itself.
  static constexpr std::size_t kBlockLimit = std::size_t{64} * 1024;
  /// The longest remainder that is held back, and so the longest block.
  static constexpr std::size_t kRemainderLimit = std::size_t{1024} * 1024;
  /// How long a remainder is held back after its last byte.
  static constexpr std::chrono::milliseconds kRemainderWait{250};

  /// Adds the bytes of one read.
  void Add(std::string_view bytes, Time now);

  /// Removes and returns the next block that is due; empty if none is. With `at_end` no more bytes
  /// will arrive, and everything is due.
  std::string Take(Time now, bool at_end);

  /// Whether a block is due, regardless of the time.
  bool HasBlock() const { return due_ > 0 || bytes_.size() >= kRemainderLimit; }

  /// When the remainder will be due unless more arrives first; nothing if none is held back.
  std::optional<Time> RemainderDeadline() const;

 private:
  std::size_t NextLength(Time now, bool at_end) const;

  std::string bytes_;
  std::size_t due_ = 0;           ///< bytes at the front of `bytes_` that are due
  std::size_t last_arrival_ = 0;  ///< length of the last read
  Time last_byte_{};
};

}  // namespace korvanta

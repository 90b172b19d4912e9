/// Cuts the stream of received bytes into the blocks that the client handles; the client socket is
/// its one user.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvanta {

/// What arrives at once is one block, also when it ends in the middle of a message. But a network
/// path may cut a long message where nobody meant to. Therefore, behind an arrival that may have
/// been cut, a rest without its terminator waits a while for its continuation. Time is passed in by
/// the caller and never goes back.
class BlockAssembler {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// The smallest segment that every network path carries: a shorter arrival was not cut.
  static constexpr std::size_t kSmallestSegment = 536;
  /// The most that the caller adds at once: an arrival of this size was cut by the caller and goes
  /// on in the next. Nor is a block of several messages longer, so that one event stays short. A
  /// message that is longer by itself makes a block alone.
  static constexpr std::size_t kBlockLimit = std::size_t{64} * 1024;
  /// Longest rest that waits, and so the longest block of all.
  static constexpr std::size_t kRestLimit = std::size_t{1024} * 1024;
  /// How long a rest waits after its last byte.
  static constexpr std::chrono::milliseconds kRestWait{250};

  /// These bytes arrived at once.
  void Add(std::string_view bytes, Time now);

  /// The next block that is due, empty when there is none. With `at_end` no more bytes will come
  /// and everything is due.
  std::string Take(Time now, bool at_end);

  /// A block is due whatever the time.
  bool HasBlock() const { return due_ > 0 || bytes_.size() >= kRestLimit; }

  /// When the rest is due unless its continuation comes first; nothing while no rest waits.
  std::optional<Time> RestDeadline() const;

 private:
  std::size_t NextLength(Time now, bool at_end) const;

  std::string bytes_;
  std::size_t due_ = 0;           ///< so many bytes of `bytes_` wait for nothing
  std::size_t last_arrival_ = 0;  ///< its length
  Time last_byte_{};
};

}  // namespace korvanta

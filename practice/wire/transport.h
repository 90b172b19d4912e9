/// What the server asks of the network: to send bytes to a connection, and to end it.
#pragma once

#include <cstdint>
#include <string_view>

namespace korvanta::practice {

/// Names one connection for as long as the server runs; never used twice.
using ConnectionId = std::uint64_t;
/// Names none.
inline constexpr ConnectionId kNoConnection = 0;

class Transport {
 public:
  virtual ~Transport() = default;

  /// Queues whole messages; returns at once and never calls back. An id that has ended is ignored.
  virtual void Send(ConnectionId connection, std::string_view messages) = 0;
  /// Ends the connection after everything queued has left. Nothing more is reported about it.
  virtual void Close(ConnectionId connection) = 0;
};

/// A network that can also hang up at once, which mischief needs.
class ResettableTransport : public Transport {
 public:
  /// Ends the connection at once, by a reset; what is queued is lost. Returns at once and never
  /// calls back; that the connection has vanished is reported later.
  virtual void Reset(ConnectionId connection) = 0;
};

}  // namespace korvanta::practice

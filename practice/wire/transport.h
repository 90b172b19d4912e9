/// What the server's rules ask of the network: bytes to a connection, and its end.
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
  Transport() = default;
  Transport(const Transport&) = delete;
  Transport& operator=(const Transport&) = delete;
  virtual ~Transport() = default;

  /// Queues whole messages; returns at once and never calls back. An id that has ended is ignored.
  virtual void Send(ConnectionId connection, std::string_view messages) = 0;
  /// Ends the connection after everything queued has left. Nothing is heard of it afterwards.
  virtual void Close(ConnectionId connection) = 0;
};

/// A network that can also hang up without a word, for those who make mischief with it.
class ResettableTransport : public Transport {
 public:
  /// Ends the connection at once, by a reset; what is queued is lost. Returns at once and never
  /// calls back; the rules hear later that the connection has vanished.
  virtual void Reset(ConnectionId connection) = 0;
};

}  // namespace korvanta::practice

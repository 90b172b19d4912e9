/// The TCP socket that the client needs from the desktop. Used by the connection alone.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace korvanta {

/// All calls are made on the user-interface thread and return at once; events are raised on the
/// same thread, never from within a call.
class ClientSocket {
 public:
  ClientSocket() = default;
  ClientSocket(const ClientSocket&) = delete;
  ClientSocket& operator=(const ClientSocket&) = delete;
  virtual ~ClientSocket() = default;

  /// Ends any connection or attempt; no event follows. Does nothing when closed.
  virtual void Close() = 0;

  /// Starts to connect. `host` is an IPv4 address in dotted form. Raises `on_connected` on success,
  /// nothing on failure.
  virtual void Connect(const std::string& host, std::uint16_t port) = 0;

  /// Queues all of `text`, one byte per character. Dropped when not connected.
  virtual void Send(std::string_view text) = 0;

  virtual bool IsConnected() const = 0;

  /// Flushes before the program ends: waits until everything sent has left, the peer has gone, or a
  /// second has passed.
  virtual void Drain() = 0;

  std::function<void()> on_connected;
  /// Received bytes, never empty; valid only during the call.
  std::function<void(std::string_view block)> on_data_arrival;
  /// The peer closed the connection, or it broke. Everything received has been delivered by then.
  std::function<void()> on_closed;
};

}  // namespace korvanta

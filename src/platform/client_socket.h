/// The TCP client socket that the client asks of the desktop; the connection is its one user.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace korvanta {

/// All calls are made on the user-interface thread and return at once; events come on the same
/// thread, never from inside one of these calls.
class ClientSocket {
 public:
  ClientSocket() = default;
  ClientSocket(const ClientSocket&) = delete;
  ClientSocket& operator=(const ClientSocket&) = delete;
  virtual ~ClientSocket() = default;

  /// Ends any connection or attempt and raises no event for it, now or later. Harmless when
  /// nothing is open.
  virtual void Close() = 0;

  /// Starts an attempt. `host` is an IPv4 address in dotted form. Success raises `on_connected`;
  /// failure raises nothing.
  virtual void Connect(const std::string& host, std::uint16_t port) = 0;

  /// Queues all of `text`, one byte a character, behind what was sent before. Dropped when not
  /// connected.
  virtual void Send(std::string_view text) = 0;

  virtual bool IsConnected() const = 0;

  /// Gives what was sent a last chance to leave before the program ends: waits until it has, the
  /// peer has gone, or a second has passed.
  virtual void Drain() = 0;

  std::function<void()> on_connected;
  /// The bytes that have arrived; valid during the call only, never empty.
  std::function<void(std::string_view block)> on_data_arrival;
  /// The peer closed the connection, or it broke. Everything received was delivered before.
  std::function<void()> on_closed;
};

}  // namespace korvanta

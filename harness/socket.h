/// A TCP socket on the game's port of a loopback address, for servers and clients that are scripted
/// without an event loop.
#pragma once

#include <QString>
#include <chrono>
#include <span>
#include <string_view>

#include "harness/host.h"

namespace korvanta::harness {

/// Owns its descriptor. One thread may send while another receives.
class Socket {
 public:
  Socket() = default;
  /// HarnessError when the address cannot be listened on.
  static Socket Listening(const QString& address);
  /// HarnessError when nobody accepts there.
  static Socket ConnectedTo(const QString& address);
  Socket(Socket&& other) noexcept;
  Socket& operator=(Socket&& other) noexcept;
  ~Socket();

  bool IsOpen() const { return descriptor_ >= 0; }
  /// Of a listening socket: the next connection, which is not open when none comes in time.
  Socket Accept(std::chrono::milliseconds patience) const;
  /// Hands over all bytes. False when the other end has gone; HarnessError when it does not read.
  bool Send(std::string_view bytes) const;
  /// How many bytes came, at most as many as the buffer holds. Zero when none came in time, and
  /// when the other end has gone.
  std::size_t Receive(std::span<char> buffer, std::chrono::milliseconds patience) const;
  /// Whether the other end has ended the connection, even when bytes of it were not received yet.
  bool HasEnded() const;

 private:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}

  int descriptor_ = -1;
};

}  // namespace korvanta::harness

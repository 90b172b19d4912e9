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
  /// Throws HarnessError if it cannot listen on the address.
  static Socket Listening(const QString& address);
  /// Throws HarnessError if nobody accepts there.
  static Socket ConnectedTo(const QString& address);
  Socket(Socket&& other) noexcept;
  Socket& operator=(Socket&& other) noexcept;
  ~Socket();

  bool IsOpen() const { return descriptor_ >= 0; }
  /// For a listening socket: the next connection, which is not open if none is made in time.
  Socket Accept(std::chrono::milliseconds patience) const;
  /// Sends all bytes. Returns false if the peer has gone; throws HarnessError if it does not read.
  bool Send(std::string_view bytes) const;
  /// Returns the number of bytes received; 0 if none arrived in time or the peer has gone.
  std::size_t Receive(std::span<char> buffer, std::chrono::milliseconds patience) const;
  /// Whether the peer has closed the connection, even if bytes of it are still unread.
  bool HasEnded() const;

 private:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}

  int descriptor_ = -1;
};

}  // namespace korvanta::harness

/// A client without windows, for talking to the practice server byte by byte.
#pragma once

#include <string>
#include <string_view>

#include "harness/practice_server.h"
#include "harness/socket.h"

namespace korvanta::harness {

/// Connects on construction; reads only in the calls that say so.
class ScriptedClient {
 public:
  explicit ScriptedClient(const PracticeServer& server);

  /// Bytes that the server no longer accepts are lost.
  void Send(std::string_view bytes) const { socket_.Send(bytes); }
  void LogIn(const std::string& name) const;

  /// Whether `bytes` have been received since the last match; if so, they and everything before
  /// them are discarded.
  bool HasReceived(std::string_view bytes);
  void WaitFor(std::string_view bytes);
  /// Discards what has been received, or is within a moment; returns the number of bytes.
  std::size_t Discard();

  /// Whether the server has ended the connection.
  bool HasEnded() const { return socket_.HasEnded(); }
  void WaitForEnd() const;

 private:
  /// Receives what is available or arrives in time, at most one buffer.
  void Receive(std::chrono::milliseconds patience);

  Socket socket_;
  std::string received_;
};

}  // namespace korvanta::harness

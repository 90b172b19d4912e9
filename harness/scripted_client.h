/// A client without windows, for those who talk to the practice server's program byte by byte.
#pragma once

#include <string>
#include <string_view>

#include "harness/practice_server.h"
#include "harness/socket.h"

namespace korvanta::harness {

/// Connected from its beginning, and reads only where it says so.
class ScriptedClient {
 public:
  explicit ScriptedClient(const PracticeServer& server);

  /// What the server no longer takes is lost.
  void Send(std::string_view bytes) const { socket_.Send(bytes); }
  void LogIn(const std::string& name) const;

  /// Whether that has come since the last call that found something, after whatever else; all up
  /// to it is then forgotten.
  bool HasReceived(std::string_view bytes);
  void WaitFor(std::string_view bytes);
  /// Forgets what has come, or comes within a moment; returns how many bytes it was.
  std::size_t Discard();

  /// Whether the server has ended the connection.
  bool HasEnded() const { return socket_.HasEnded(); }
  void WaitForEnd() const;

 private:
  /// Adds what is there, or comes within that time, as much of it as one buffer holds.
  void Receive(std::chrono::milliseconds patience);

  Socket socket_;
  std::string received_;
};

}  // namespace korvanta::harness

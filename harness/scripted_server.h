/// A game server whose every byte is decided by who scripts it.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "harness/socket.h"

namespace korvanta::harness {

/// Listens on a loopback address of its own and has one client at a time: the last to connect.
/// Every wait ends in a HarnessError when the harness's patience is over. One thread may send while
/// another receives.
class ScriptedServer {
 public:
  ScriptedServer();

  const QString& address() const { return address_; }
  /// How many clients have connected so far.
  int clients();
  /// Waits for a client behind the first `known`.
  void WaitForClient(int known = 0);
  /// Waits for a client behind the first `known` and accepts its login, whoever it names, as
  /// Marlow's.
  void LetIn(int known = 0);

  /// Takes exactly `bytes` from the front of what the client sent. HarnessError at the first byte
  /// that differs, and when too few come.
  void Expect(std::string_view bytes);
  /// Takes all that the client sends up to and with `end`.
  void ReceiveUntil(std::string_view end);
  /// What the client sent and nobody took yet.
  const std::string& unread();
  void Send(std::string_view bytes) const;

  /// Ends the connection after all that was sent.
  void DropClient() { client_ = Socket(); }
  /// Waits until the client has ended the connection.
  void WaitUntilLeft() const;

 private:
  /// Adds what comes within that time to what is unread.
  void Receive(std::chrono::milliseconds patience);

  QString address_;
  Socket listener_;
  Socket client_;
  int clients_ = 0;
  std::string unread_;
};

/// Bytes as a reader can tell them apart: separators and other control codes as <n>.
QString Readable(std::string_view bytes);

}  // namespace korvanta::harness

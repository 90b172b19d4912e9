/// A game server that sends exactly what a script says.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "harness/socket.h"

namespace korvanta::harness {

/// Listens on a loopback address of its own and has one client at a time: the last to connect.
/// Every wait throws HarnessError after `kPatience`. One thread may send while another receives.
class ScriptedServer {
 public:
  ScriptedServer();

  const QString& address() const { return address_; }
  /// How many clients have connected so far.
  int clients();
  /// Waits until more than `known` clients have connected.
  void WaitForClient(int known = 0);
  /// Waits likewise, and accepts the login, whatever its name, as Marlow.
  void LetIn(int known = 0);

  /// Consumes exactly `bytes` of what the client sends. Throws HarnessError at the first byte that
  /// differs, or if too few arrive.
  void Expect(std::string_view bytes);
  /// Consumes what the client sends, up to and including `end`.
  void ReceiveUntil(std::string_view end);
  /// What was received and not consumed yet.
  const std::string& unread();
  void Send(std::string_view bytes) const;

  /// Closes the connection after everything that was sent.
  void DropClient() { client_ = Socket(); }
  /// Waits until the client has ended the connection.
  void WaitUntilLeft() const;

 private:
  /// Adds what arrives in time to `unread_`.
  void Receive(std::chrono::milliseconds patience);

  QString address_;
  Socket listener_;
  Socket client_;
  int clients_ = 0;
  std::string unread_;
};

/// The bytes in readable form: separators and other control codes as <n>.
QString Readable(std::string_view bytes);

}  // namespace korvanta::harness

/// A game server whose every byte the test decides.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

#include "harness/host.h"

namespace korvanta::process {

/// A server on the game's port of its own loopback address, with one client at a time: the last one
/// that came.
class ScriptedServer {
 public:
  /// Listens at once; HarnessError when it cannot.
  ScriptedServer();

  const QString& address() const { return address_; }
  /// How many clients came so far.
  int clients() const { return clients_; }
  /// Waits for a client behind the first `known`.
  void WaitForClient(int known = 0);

  /// Takes exactly `bytes` from the front of what the client sent. HarnessError at the first byte
  /// that differs, and when too few come.
  void Expect(const QByteArray& bytes);
  /// What the client sent and nobody expected yet.
  const QByteArray& unread();
  void Send(const QByteArray& bytes);

  /// Waits until the client has ended the connection.
  void WaitUntilLeft();

 private:
  QTcpSocket& Client();

  QString address_;
  QTcpServer server_;
  QTcpSocket* client_ = nullptr;
  int clients_ = 0;
  QByteArray unread_;
};

/// Bytes as a reader can tell them apart: separators and other control codes as <n>.
QString Readable(const QByteArray& bytes);

}  // namespace korvanta::process

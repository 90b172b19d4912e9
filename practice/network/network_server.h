/// The practice server's sockets: they hand what arrives to the server and send what it answers, on
/// one thread, for thousands of connections.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "practice/server.h"
#include "practice/trouble/load.h"
#include "practice/trouble/mischief.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

class NetworkServer : private ResettableTransport {
 public:
  NetworkServer(const ServerOptions& rules, const LoadOptions& load,
                const MischiefOptions& mischief, Journal journal);
  /// Ends all connections at once.
  ~NetworkServer() override;

  /// Starts to take connections. Empty on success, otherwise why it failed.
  QString Listen(const QHostAddress& address, quint16 port);

  /// Says farewell to the players and ends all connections; calls `ended` when the last has gone,
  /// or after two seconds.
  void End(std::function<void()> ended);

  quint16 port() const { return listener_.serverPort(); }

 private:
  struct Connection {
    QTcpSocket* socket;
    QByteArray outbox;        // sent in one write when the event is over
    bool is_closing = false;  // already forgotten by the server; its last bytes are being sent
    bool is_reset = false;    // to be ended at once
  };

  /// Null when it has ended.
  Connection* Find(ConnectionId id);
  void Send(ConnectionId id, std::string_view messages) override;
  void Close(ConnectionId id) override;
  void Reset(ConnectionId id) override;

  void TakeConnections();
  void Written(ConnectionId id);
  void Forget(ConnectionId id);
  void FlushSoon(ConnectionId id);
  void Flush(ConnectionId id);

  QElapsedTimer running_since_;
  QTimer tick_;
  QTcpServer listener_;
  std::unordered_map<ConnectionId, Connection> connections_;
  ConnectionId last_id_ = 0;
  std::function<void()> ended_;
  // What the server sends goes through these two on its way to a socket.
  Mischief mischief_;
  Load load_;
  Server rules_;
};

}  // namespace korvanta::practice

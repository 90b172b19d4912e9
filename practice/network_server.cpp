#include "practice/network_server.h"

#include <QObject>
#include <chrono>
#include <sys/socket.h>
#include <utility>

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;

constexpr auto kTick = 100ms;
/// How long a client may take to read its last words and hang up.
constexpr auto kClosingTime = 5s;
constexpr int kListenBacklog = 1024;
/// Bytes taken from one connection at a time, so that no client keeps the others waiting.
constexpr qint64 kReadBuffer = qint64{256} * 1024;

}  // namespace

NetworkServer::NetworkServer(const ServerOptions& options,
                             std::function<void(std::string_view line)> journal)
    : rules_(*this, options, std::move(journal)) {
  QObject::connect(&listener_, &QTcpServer::newConnection, &listener_,
                   [this] { TakeConnections(); });
  QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] {
    rules_.Tick(std::chrono::milliseconds(running_since_.elapsed()));
    Flush();
  });
}

NetworkServer::~NetworkServer() {
  rules_.SayFarewell();
  Flush();
  for (const auto& [id, connection] : connections_) {
    connection.socket->disconnect();
    connection.socket->flush();
    connection.socket->disconnectFromHost();
  }
}

QString NetworkServer::Listen(const QHostAddress& address, quint16 port) {
  listener_.setListenBacklogSize(kListenBacklog);
  if (!listener_.listen(address, port)) {
    return listener_.errorString();
  }
  running_since_.start();
  tick_.start(kTick);
  return {};
}

void NetworkServer::Send(ConnectionId id, std::string_view messages) {
  const auto found = connections_.find(id);
  if (found == connections_.end() || found->second.is_closing) {
    return;
  }
  if (found->second.outbox.isEmpty()) {
    unflushed_.push_back(id);
  }
  found->second.outbox.append(messages.data(), static_cast<qsizetype>(messages.size()));
}

void NetworkServer::Close(ConnectionId id) {
  const auto found = connections_.find(id);
  if (found == connections_.end()) {
    return;
  }
  found->second.is_closing = true;
  unflushed_.push_back(id);
  QTcpSocket* socket = found->second.socket;
  QTimer::singleShot(kClosingTime, socket, [socket] { socket->abort(); });
}

void NetworkServer::TakeConnections() {
  while (QTcpSocket* socket = listener_.nextPendingConnection()) {
    const ConnectionId id = ++last_id_;
    socket->setReadBufferSize(kReadBuffer);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connections_.emplace(id, Connection{socket, {}});
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, id] { Read(id); });
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket, [this, id] {
      if (const auto found = connections_.find(id); found != connections_.end()) {
        FinishClosing(found->second);
      }
    });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, id] { Forget(id); });
    rules_.Connected(id);
  }
  Flush();
}

void NetworkServer::Read(ConnectionId id) {
  const auto found = connections_.find(id);
  if (found == connections_.end()) {
    return;
  }
  const QByteArray bytes = found->second.socket->readAll();
  rules_.Received(id, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  Flush();
}

void NetworkServer::Forget(ConnectionId id) {
  const auto found = connections_.find(id);
  if (found == connections_.end()) {
    return;
  }
  const Connection gone = std::move(found->second);
  connections_.erase(found);
  gone.socket->deleteLater();
  if (!gone.is_closing) {
    rules_.Vanished(id);
  }
  Flush();
}

/// Clients do not join messages that arrive in two parts, so what the rules answer to one event
/// goes out whole.
void NetworkServer::Flush() {
  if (is_flushing_) {
    return;  // a connection that was cut off; the loop below goes on with what that led to
  }
  is_flushing_ = true;
  while (!unflushed_.empty()) {
    const auto found = connections_.find(unflushed_.back());
    unflushed_.pop_back();
    if (found == connections_.end()) {
      continue;
    }
    Connection& connection = found->second;
    if (connection.socket->bytesToWrite() + connection.outbox.size() > kMaxBacklog) {
      connection.socket->abort();
      continue;
    }
    if (!connection.outbox.isEmpty()) {
      connection.socket->write(std::exchange(connection.outbox, {}));
    }
    FinishClosing(connection);
  }
  is_flushing_ = false;
}

/// Ends the server's half alone. The client's half is read and thrown away until it hangs up:
/// closing a socket with unread bytes would reset the connection and could destroy the last words.
void NetworkServer::FinishClosing(const Connection& connection) {
  if (connection.is_closing && connection.outbox.isEmpty() &&
      connection.socket->bytesToWrite() == 0) {
    ::shutdown(static_cast<int>(connection.socket->socketDescriptor()), SHUT_WR);
  }
}

}  // namespace korvanta::practice

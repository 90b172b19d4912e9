#include "practice/network/network_server.h"

#include <QObject>
#include <chrono>
#include <utility>

#include "practice/network/native.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;

constexpr auto kTick = 100ms;
/// How long a client may take to read what is left and hang up.
constexpr auto kClosingTime = 5s;
/// How long the players may take to hang up when the server ends.
constexpr auto kFarewellTime = 2s;
/// Bytes that may wait for a slow reader; one that falls behind further is cut off.
constexpr qint64 kMaxBacklog = qint64{4} * 1024 * 1024;
/// A connection with fewer bytes waiting has room for more of a flood.
constexpr qint64 kLowBacklog = qint64{64} * 1024;
constexpr int kListenBacklog = 1024;
/// Bytes taken from one connection at a time, so that no client keeps the others waiting.
constexpr qint64 kReadBuffer = qint64{8} * 1024;

}  // namespace

NetworkServer::NetworkServer(const ServerOptions& rules, const LoadOptions& load,
                             const MischiefOptions& mischief, Journal journal)
    : mischief_(*this, mischief),
      load_(mischief_, load, rules.seed),
      rules_(load_, rules, std::move(journal)) {
  QObject::connect(&listener_, &QTcpServer::newConnection, &listener_,
                   [this] { TakeConnections(); });
  QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] {
    const std::chrono::milliseconds now(running_since_.elapsed());
    rules_.Tick(now);
    load_.Tick(now);
    mischief_.Tick();
  });
}

NetworkServer::~NetworkServer() {
  for (const auto& [id, connection] : connections_) {
    connection.socket->disconnect();
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

void NetworkServer::End(std::function<void()> ended) {
  listener_.close();
  tick_.stop();
  rules_.SayFarewell();
  for (const auto& [id, connection] : connections_) {
    Close(id);
  }
  ended_ = std::move(ended);
  QTimer::singleShot(connections_.empty() ? 0s : kFarewellTime, &tick_, ended_);
}

NetworkServer::Connection* NetworkServer::Find(ConnectionId id) {
  const auto found = connections_.find(id);
  return found == connections_.end() ? nullptr : &found->second;
}

void NetworkServer::Send(ConnectionId id, std::string_view messages) {
  Connection* connection = Find(id);
  if (connection == nullptr || connection->is_closing) {
    return;
  }
  if (connection->outbox.isEmpty()) {
    FlushSoon(id);
  }
  connection->outbox.append(messages.data(), static_cast<qsizetype>(messages.size()));
}

void NetworkServer::Close(ConnectionId id) {
  if (Connection* connection = Find(id)) {
    connection->is_closing = true;
    FlushSoon(id);
    QTcpSocket* socket = connection->socket;
    QTimer::singleShot(kClosingTime, socket, [socket] { socket->abort(); });
  }
}

void NetworkServer::Reset(ConnectionId id) {
  if (Connection* connection = Find(id)) {
    connection->is_reset = true;
    FlushSoon(id);
  }
}

void NetworkServer::TakeConnections() {
  while (QTcpSocket* socket = listener_.nextPendingConnection()) {
    const ConnectionId id = ++last_id_;
    socket->setReadBufferSize(kReadBuffer);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connections_.emplace(id, Connection{socket, {}});
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, id, socket] {
      const QByteArray bytes = socket->readAll();
      rules_.Received(id, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    });
    QObject::connect(socket, &QTcpSocket::bytesWritten, socket, [this, id] { Written(id); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, id] { Forget(id); });
    mischief_.Connected(id);
    rules_.Connected(id);
  }
}

void NetworkServer::Written(ConnectionId id) {
  Flush(id);
  const Connection* connection = Find(id);
  if (connection != nullptr && connection->socket->bytesToWrite() < kLowBacklog) {
    load_.Refill(id);
  }
}

void NetworkServer::Forget(ConnectionId id) {
  const Connection gone = connections_.extract(id).mapped();
  gone.socket->deleteLater();
  mischief_.Vanished(id);
  load_.Vanished(id);
  if (!gone.is_closing) {
    rules_.Vanished(id);
  }
  if (ended_ && connections_.empty()) {
    ended_();
  }
}

/// Clients may take what arrives in two parts for two blocks, so what the server answers to one
/// event goes out whole, when the event is over.
void NetworkServer::FlushSoon(ConnectionId id) {
  QMetaObject::invokeMethod(
      &listener_, [this, id] { Flush(id); }, Qt::QueuedConnection);
}

void NetworkServer::Flush(ConnectionId id) {
  Connection* connection = Find(id);
  if (connection == nullptr) {
    return;
  }
  QTcpSocket& socket = *connection->socket;
  const bool is_too_slow = socket.bytesToWrite() + connection->outbox.size() > kMaxBacklog;
  if (connection->is_reset) {
    ResetWhenClosed(socket.socketDescriptor());
  }
  if (connection->is_reset || is_too_slow) {
    socket.abort();
    return;
  }
  if (!connection->outbox.isEmpty()) {
    socket.write(std::exchange(connection->outbox, {}));
  }
  // Ends only the server's half. The client's half is read and discarded until it hangs up: closing
  // a socket with unread bytes would reset the connection and could destroy what is still on its
  // way.
  if (connection->is_closing && socket.bytesToWrite() == 0) {
    EndStream(socket.socketDescriptor());
  }
}

}  // namespace korvanta::practice

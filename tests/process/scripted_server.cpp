#include "tests/process/scripted_server.h"

#include <QHostAddress>
#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "protocol/wire_format.h"

namespace korvanta::process {

ScriptedServer::ScriptedServer() : address_(UniqueLoopbackAddress()) {
  if (!server_.listen(QHostAddress(address_), kServerPort)) {
    throw HarnessError(QString("cannot listen on %1:%2: %3")
                           .arg(address_)
                           .arg(kServerPort)
                           .arg(server_.errorString()));
  }
  QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
    while (QTcpSocket* client = server_.nextPendingConnection()) {
      client_ = client;
      unread_.clear();
      ++clients_;
    }
  });
}

void ScriptedServer::WaitForClient(int known) {
  WaitUntil("a client connects to the server", [&] { return clients_ > known; });
}

void ScriptedServer::Expect(const QByteArray& bytes) {
  const auto agrees = [&] { return bytes.startsWith(unread().left(bytes.size())); };
  try {
    WaitUntil("the client sends", [&] { return !agrees() || unread_.size() >= bytes.size(); });
  } catch (const HarnessError&) {
    // Told below, with what did come.
  }
  if (!agrees() || unread_.size() < bytes.size()) {
    throw HarnessError(QString("expected from the client: %1\nreceived: %2")
                           .arg(Readable(bytes), Readable(unread_)));
  }
  unread_.remove(0, bytes.size());
}

const QByteArray& ScriptedServer::unread() {
  if (client_ != nullptr) {
    unread_ += client_->readAll();
  }
  return unread_;
}

void ScriptedServer::Send(const QByteArray& bytes) {
  Client().write(bytes);
  WaitUntil("the bytes to the client are written", [this] { return Client().bytesToWrite() == 0; });
}

void ScriptedServer::Close() { Client().disconnectFromHost(); }

void ScriptedServer::Reset() {
  const linger at_once = {1, 0};
  ::setsockopt(static_cast<int>(Client().socketDescriptor()), SOL_SOCKET, SO_LINGER, &at_once,
               sizeof at_once);
  Client().abort();
}

void ScriptedServer::SendAndClose(const QByteArray& bytes) {
  Client().write(bytes);
  Client().disconnectFromHost();
}

void ScriptedServer::WaitUntilLeft() {
  WaitUntil("the client leaves",
            [this] { return Client().state() == QAbstractSocket::UnconnectedState; });
}

QTcpSocket& ScriptedServer::Client() {
  if (client_ == nullptr) {
    throw HarnessError("no client has connected to the server yet");
  }
  return *client_;
}

// A backlog that is full and never taken from: further attempts are dropped without a word.
SilentServer::SilentServer()
    : address_(UniqueLoopbackAddress()), listening_(::socket(AF_INET, SOCK_STREAM, 0)) {
  sockaddr_in place = {};
  place.sin_family = AF_INET;
  place.sin_port = htons(kServerPort);
  ::inet_pton(AF_INET, address_.toLatin1().constData(), &place.sin_addr);
  const auto* where = reinterpret_cast<const sockaddr*>(&place);
  if (::bind(listening_, where, sizeof place) != 0 || ::listen(listening_, 0) != 0) {
    throw HarnessError(QString("cannot listen on %1:%2").arg(address_).arg(kServerPort));
  }
  for (int i = 0; i < 3; ++i) {
    waiting_.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
    if (::connect(waiting_.back(), where, sizeof place) != 0 && errno != EINPROGRESS) {
      throw HarnessError(QString("cannot fill the backlog of %1").arg(address_));
    }
  }
}

SilentServer::~SilentServer() {
  std::for_each(waiting_.begin(), waiting_.end(), [](int socket) { ::close(socket); });
  ::close(listening_);
}

QString Readable(const QByteArray& bytes) {
  QString text;
  for (const char byte : bytes) {
    const int code = static_cast<unsigned char>(byte);
    text += code >= 32 && code < 127 ? QString(QChar(code)) : QString("<%1>").arg(code);
  }
  return text;
}

}  // namespace korvanta::process

#include "harness/scripted_server.h"

#include <QHostAddress>

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
  WaitUntil("a client connects to the server", [=, this] { return clients_ > known; });
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

QString Readable(const QByteArray& bytes) {
  QString text;
  for (const char byte : bytes) {
    const int code = static_cast<unsigned char>(byte);
    text += code >= 32 && code < 127 ? QString(QChar(code)) : QString("<%1>").arg(code);
  }
  return text;
}

}  // namespace korvanta::process

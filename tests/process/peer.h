/// A client without windows, for tests of the practice server's program.
#pragma once

#include <QTcpSocket>
#include <string>
#include <utility>

#include "harness/host.h"
#include "harness/practice_server.h"
#include "harness/scripted_server.h"
#include "protocol/message_catalogue.h"
#include "protocol/wire_format.h"

namespace korvanta::process {

class Peer {
 public:
  enum class Reads { All, Nothing };

  explicit Peer(const PracticeServer& server, Reads reads = Reads::All) {
    if (reads == Reads::Nothing) {
      socket_.setReadBufferSize(1);
    }
    socket_.connectToHost(server.address(), kServerPort);
    if (!socket_.waitForConnected(static_cast<int>(kPatience.count()))) {
      throw HarnessError("the practice server does not accept: " + socket_.errorString());
    }
  }

  bool HasEnded() const { return socket_.state() != QAbstractSocket::ConnectedState; }
  void Send(const std::string& bytes) {
    socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket_.flush();
  }
  void LogIn(const std::string& name) { Send(outbound::Login("1.6", name, "secret")); }
  /// Whether that has come since the last call that found something, after whatever else; all up
  /// to it is then forgotten.
  bool HasHeard(const QByteArray& bytes) {
    received_ += socket_.readAll();
    const qsizetype at = received_.indexOf(bytes);
    if (at < 0) {
      received_ = received_.right(bytes.size() - 1);
      return false;
    }
    received_.remove(0, at + bytes.size());
    return true;
  }
  void WaitFor(const QByteArray& bytes) {
    WaitUntil("the practice server sends " + Readable(bytes), [&] { return HasHeard(bytes); });
  }
  QByteArray TakeHeard() { return std::exchange(received_, {}) + socket_.readAll(); }
  void WaitForEnd() {
    WaitUntil("the practice server ends the connection", [this] { return HasEnded(); });
  }

 private:
  QTcpSocket socket_;
  QByteArray received_;
};

}  // namespace korvanta::process

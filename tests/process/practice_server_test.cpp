#include "tests/process/practice_server.h"

#include <QTcpSocket>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/message_catalogue.h"
#include "protocol/wire_format.h"
#include "tests/process/host.h"
#include "tests/process/scripted_server.h"

namespace korvanta::process {
namespace {

using testing::HasSubstr;

/// A client without windows.
class Peer {
 public:
  explicit Peer(const PracticeServer& server) {
    socket_.connectToHost(server.address(), kServerPort);
    WaitUntil("the practice server accepts", [this] { return socket_.isValid() && IsConnected(); });
  }

  bool IsConnected() const { return socket_.state() == QAbstractSocket::ConnectedState; }
  void Send(const std::string& bytes) {
    socket_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket_.flush();
  }
  /// Waits until that has come, after whatever else; all up to it is then forgotten.
  void WaitFor(const QByteArray& bytes) {
    qsizetype at = -1;
    WaitUntil("the practice server sends " + Readable(bytes), [&] {
      received_ += socket_.readAll();
      at = received_.indexOf(bytes);
      return at >= 0;
    });
    received_.remove(0, at + bytes.size());
  }
  void WaitForEnd() {
    WaitUntil("the practice server ends the connection", [this] { return !IsConnected(); });
  }

 private:
  QTcpSocket socket_;
  QByteArray received_;
};

TEST(PracticeServer, RelaysChatBetweenThoseWhoAreLoggedIn) {
  PracticeServer server;
  Peer aster(server);
  const std::string login = outbound::Login("1.6", "Aster", "secret");
  aster.Send(login.substr(0, 7));
  Peer brisk(server);
  brisk.Send(outbound::Login("1.6", "Brisk", "secret"));
  brisk.WaitFor("[con]Brisk\001");
  aster.Send(login.substr(7));
  aster.WaitFor("[con]Aster\001");
  brisk.WaitFor("Aster logged in");

  aster.Send(std::string("[ctc]c hello\0", 13));
  aster.WaitFor("hello");
  brisk.WaitFor("hello");

  EXPECT_EQ(server.Stop(), 0);
  brisk.WaitFor("Goodbye!");
  brisk.WaitForEnd();
}

TEST(PracticeServer, AWrongPasswordIsToldBeforeTheConnectionEnds) {
  const PracticeServer server;
  {
    Peer owner(server);
    owner.Send(outbound::Login("1.6", "Aster", "secret"));
    owner.WaitFor("[con]Aster\001");
  }
  Peer other(server);
  other.Send(outbound::Login("1.6", "Aster", "guessed"));
  other.WaitFor("Wrong password.");
  other.WaitForEnd();
}

TEST(PracticeServer, WhatKeepsItFromStartingIsToldInOneLine) {
  const PracticeServer running;
  struct Case {
    QStringList options;
    const char* told;
  };
  const Case cases[] = {
      {{"--address", running.address()}, "cannot listen on 127."},
      {{"--address", "192.0.2.1"}, "--allow-remote"},
      {{"--address", "nowhere"}, "'nowhere' is no IP address"},
      {{"--port", "65536"}, "'65536' is no port"},
      {{"--players", "50001"}, "'50001' is no number of players"},
      {{"--pace", "nan"}, "'nan' is no pace"},
      {{"--pace", "0"}, "'0' is no pace"},
      {{"--seed", "-1"}, "'-1' is no seed"},
      {{"7678"}, "unexpected argument '7678'"},
      {{"--sound"}, "sound"},
  };
  for (const Case& c : cases) {
    const ToolResult result = RunTool(PracticeServerProgram(), c.options, BareEnvironment());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors.count('\n'), 1) << result.errors.constData();
    EXPECT_THAT(result.errors.toStdString(), HasSubstr(c.told));
  }
}

TEST(PracticeServer, EachFaultOfTheCommandLineIsALineOfItsOwn) {
  const ToolResult result =
      RunTool(PracticeServerProgram(), {"--port", "x", "--players", "-1", "--pace", "fast"},
              BareEnvironment());
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.errors.count('\n'), 3) << result.errors.constData();
}

}  // namespace
}  // namespace korvanta::process

#include <QCoreApplication>
#include <QTcpSocket>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "protocol/wire_format.h"
#include "tests/process/host.h"
#include "tests/process/scripted_server.h"
#include "tests/process/user.h"
#include "tests/process/virtual_display.h"

namespace korvanta::process {
namespace {

using testing::HasSubstr;
using testing::Property;
using testing::Throws;

TEST(ScriptedServer, TakesTheExpectedBytesAndTellsOthers) {
  ScriptedServer server;
  QTcpSocket client;
  client.connectToHost(server.address(), kServerPort);
  server.WaitForClient();
  client.write(QByteArray("[ctc]c hi\0[p]", 13));
  server.Expect(QByteArray("[ctc]c hi\0", 10));
  EXPECT_THAT([&] { server.Expect("[dis]"); },
              Throws<HarnessError>(Property(&HarnessError::what, HasSubstr("received: [p]"))));
  server.Expect("[p]");
  EXPECT_EQ(server.unread(), "");

  server.SendAndClose("bye");
  WaitUntil("the client sees the end",
            [&] { return client.state() == QAbstractSocket::UnconnectedState; });
  EXPECT_EQ(client.readAll(), "bye");
}

TEST(ScriptedServer, ResetsAreSeenAsResets) {
  ScriptedServer server;
  QTcpSocket client;
  client.connectToHost(server.address(), kServerPort);
  server.WaitForClient();
  server.Reset();
  WaitUntil("the client sees the end",
            [&] { return client.state() == QAbstractSocket::UnconnectedState; });
  EXPECT_EQ(client.error(), QAbstractSocket::RemoteHostClosedError);
}

TEST(SilentServer, NeitherAcceptsNorRefuses) {
  const SilentServer server;
  QTcpSocket client;
  client.connectToHost(server.address(), kServerPort);
  EXPECT_FALSE(client.waitForConnected(700));
  EXPECT_EQ(client.error(), QAbstractSocket::SocketTimeoutError);
}

TEST(Host, NoTwoAddressesAreAlike) { EXPECT_NE(UniqueLoopbackAddress(), UniqueLoopbackAddress()); }

TEST(Host, AWaitInVainNamesWhatItWaitedFor) {
  EXPECT_THAT(
      [] {
        WaitUntil(
            "pigs fly", [] { return false; }, std::chrono::milliseconds(20));
      },
      Throws<HarnessError>(Property(&HarnessError::what, HasSubstr("until pigs fly"))));
}

TEST(User, SeesNoWindowWhereNoneIs) {
  const VirtualDisplay display;
  const User user(display);
  EXPECT_FALSE(user.Sees(QCoreApplication::applicationPid(), "Korvanta*"));
  EXPECT_THROW(user.Activate({"123456789", "none"}), HarnessError);
}

}  // namespace
}  // namespace korvanta::process

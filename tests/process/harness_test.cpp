#include <QTcpSocket>
#include <gmock/gmock.h>

#include "harness/host.h"
#include "harness/scripted_server.h"
#include "protocol/wire_format.h"

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
}

}  // namespace
}  // namespace korvanta::process

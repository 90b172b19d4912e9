#include <gtest/gtest.h>

#include "harness/scripted_server.h"

namespace korvanta::harness {
namespace {

using namespace std::string_view_literals;

TEST(ScriptedServer, TakesTheExpectedBytesAndNoOthers) {
  ScriptedServer server;
  const Socket client = Socket::ConnectedTo(server.address());
  server.WaitForClient();
  client.Send("[ctc]c hi\0[p]"sv);
  server.Expect("[ctc]c hi\0"sv);
  EXPECT_THROW(server.Expect("[d]"), HarnessError);
  EXPECT_EQ(server.unread(), "[p]");
}

}  // namespace
}  // namespace korvanta::harness

#include <gmock/gmock.h>

#include "harness/scripted_server.h"

namespace korvanta::harness {
namespace {

using namespace std::string_view_literals;
using testing::HasSubstr;

TEST(ScriptedServer, TakesTheExpectedBytesAndNamesOthers) {
  ScriptedServer server;
  const Socket client = Socket::ConnectedTo(server.address());
  server.WaitForClient();
  client.Send("[ctc]c hi\0[p]"sv);
  server.Expect("[ctc]c hi\0"sv);
  try {
    server.Expect("[dis]");
    FAIL() << "other bytes pass for those expected";
  } catch (const HarnessError& error) {
    EXPECT_THAT(error.what(), HasSubstr("received: [p]"));
  }
  server.Expect("[p]");
  EXPECT_EQ(server.unread(), "");
}

}  // namespace
}  // namespace korvanta::harness

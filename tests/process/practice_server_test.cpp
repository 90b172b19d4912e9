#include "harness/practice_server.h"

#include <gmock/gmock.h>

#include "harness/scripted_client.h"

namespace korvanta::harness {
namespace {

using testing::HasSubstr;

TEST(PracticeServer, MischiefComesOverConnectionsByDice) {
  const PracticeServer server({"--mischief", "reset-handshake", "--mischief-seed", "1"});
  int accepted = 0;
  int reset = 0;
  for (int i = 0; i < 20; ++i) {
    ScriptedClient peer(server);
    peer.LogIn("Peer" + std::to_string(i));
    bool is_accepted = false;
    WaitUntil("the login has an end", [&] {
      is_accepted = peer.HasReceived("[con]");
      return is_accepted || peer.HasEnded();
    });
    ++(is_accepted ? accepted : reset);
  }
  EXPECT_GT(accepted, 0);
  EXPECT_GT(reset, 0);
}

TEST(PracticeServer, WhatKeepsItFromStartingIsToldInALineEach) {
  const PracticeServer running;
  struct Case {
    QStringList options;
    const char* told;
    int lines = 1;
  };
  const Case cases[] = {
      {{"--address", running.address()}, "cannot listen on 127."},
      {{"--address", "192.0.2.1"}, "--allow-remote"},
      {{"--address", "nowhere"}, "'nowhere' is not an IP address"},
      {{"--port", "65536"}, "'65536' is not a port"},
      {{"--players", "50001"}, "'50001' is not a number of players"},
      {{"--pace", "nan"}, "'nan' is not a pace"},
      {{"--pace", "0"}, "'0' is not a pace"},
      {{"--seed", "-1"}, "'-1' is not a seed"},
      {{"--flood", "0"}, "'0' is not a rate"},
      {{"--crowd", "100001"}, "'100001' is not a crowd"},
      {{"--mischief", "cut,spells"}, "'cut,spells' names an unknown kind"},
      {{"7678"}, "unexpected argument '7678'"},
      {{"--sound"}, "sound"},
      {{"--port", "x", "--players", "-1", "--pace", "fast"}, "'fast' is not a pace", 3},
  };
  for (const Case& c : cases) {
    const ToolResult result = RunTool(PracticeServerProgram(), c.options, BareEnvironment());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors.count('\n'), c.lines) << result.errors.constData();
    EXPECT_THAT(result.errors.toStdString(), HasSubstr(c.told));
  }
}

}  // namespace
}  // namespace korvanta::harness

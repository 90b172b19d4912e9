#include "tests/process/program.h"

#include "tests/process/player.h"
#include "tests/process/process_test.h"

namespace korvanta::process {
namespace {

/// The end of what the message view holds.
testing::AssertionResult EndsWith(const QString& text, const QString& end) {
  if (text.trimmed().endsWith(end)) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << "it reads:\n" << text.toStdString();
}

TEST_F(ProcessTest, TheWindowAppearsAndClosingItEndsTheProgram) {
  const Installation installation(UniqueLoopbackAddress());
  Program program(installation, display_);
  Player player(user_, program);
  player.WaitForStart();
  player.Choose("alt+F4");
  EXPECT_EQ(program.WaitForExit(), 0);
  EXPECT_EQ(program.Output().toStdString(), "");
}

TEST_F(ProcessTest, LogsInChatsAndLeaves) {
  ScriptedServer server;
  const Installation installation(server.address());
  Program program(installation, display_);
  Player player(user_, program);
  player.WaitForStart();
  EXPECT_EQ(player.main_window().title, "Korvanta - v1.6 - Disconnected");

  player.Login("Marlow", "secret1");
  server.WaitForClient();
  server.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
  server.Send(Bytes("[con]Marlow\00190\0[msg]cht\001Aster: hail\001False\0"));
  player.WaitForState("Connected");
  player.WaitForMessage("Aster: hail");

  user_.Press({"ctrl+e"});  // the message view has the keyboard, and a use of its own for this key
  server.Expect(Bytes("[jon]\0"));

  player.Say("hello");
  server.Expect(Bytes("[ctc]c hello\0"));
  user_.Press({"ctrl+e"});  // likewise the chat line
  server.Expect(Bytes("[jon]\0"));
  player.Say("/who all");
  server.Expect(Bytes("[ctc]who all\0"));

  EXPECT_EQ(player.Leave(), 0);
  server.Expect(Bytes("[dis]\0"));
  server.WaitUntilLeft();
  EXPECT_EQ(Readable(server.unread()).toStdString(), "");
}

TEST_F(ProcessTest, TheLastUserIsRememberedAndNeedsOnlyThePassword) {
  ScriptedServer server;
  const Installation installation(server.address());
  for (const bool remembered : {false, true}) {
    Program program(installation, display_);
    Player player(user_, program);
    player.WaitForStart();
    if (remembered) {
      user_.Activate(player.login_dialog());
      user_.Type("secret1");
      user_.Press({"Return"});
    } else {
      player.Login("Marlow", "secret1");
    }
    server.WaitForClient(remembered ? 1 : 0);
    server.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
    EXPECT_EQ(player.Leave(), 0);
  }
}

TEST_F(ProcessTest, WordsThatComeWithTheEndAreReadBeforeIt) {
  ScriptedServer server;
  const Installation installation(server.address());
  Program program(installation, display_);
  Player player(user_, program);
  player.WaitForStart();
  player.Login("Marlow", "secret1");
  server.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
  server.SendAndClose(Bytes("[msg]adm\001Server: no entry\001False\0"));
  const QString messages = player.WaitForMessage("Disconnected");
  EXPECT_TRUE(EndsWith(messages, "Server: no entry\nDisconnected"));
  player.WaitForState("Disconnected");
}

TEST_F(ProcessTest, AServerThatVanishesIsADisconnection) {
  ScriptedServer server;
  const Installation installation(server.address());
  Program program(installation, display_);
  Player player(user_, program);
  player.WaitForStart();
  player.Login("Marlow", "secret1");
  server.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
  server.Send(Bytes("[con]Marlow\00190\0"));
  player.WaitForState("Connected");
  server.Reset();
  player.WaitForState("Disconnected");
  EXPECT_TRUE(EndsWith(player.WaitForMessage("Disconnected"), "Connected as Marlow\nDisconnected"));
}

void ExpectNoConnection(const User& user, const VirtualDisplay& display, const QString& address) {
  const Installation installation(address);
  Program program(installation, display);
  Player player(user, program);
  player.WaitForStart();
  player.Login("Marlow", "secret1");
  const QString messages = player.WaitForMessage("No connection can be made");
  EXPECT_EQ(messages.trimmed().toStdString(),
            "Connecting as Marlow...\nNo connection can be made\nDisconnected");
  player.WaitForState("Disconnected");
}

TEST_F(ProcessTest, ARefusedConnectionIsGivenUp) {
  ExpectNoConnection(user_, display_, UniqueLoopbackAddress());
}

TEST_F(ProcessTest, ASilentServerIsGivenUp) {
  const SilentServer server;
  ExpectNoConnection(user_, display_, server.address());
}

}  // namespace
}  // namespace korvanta::process

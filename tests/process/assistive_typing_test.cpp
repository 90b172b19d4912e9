#include <gmock/gmock.h>

#include "harness/accessibility_bus.h"
#include "tests/process/process_test.h"

namespace korvanta::process {
namespace {

using testing::IsSupersetOf;

/// Dictation, on-screen keyboards and switches write into boxes without a key being pressed.
TEST_F(ProcessTest, WhatAnAssistiveProgramWritesIntoABoxCountsAsTyped) {
  ScriptedServer server;
  const Installation installation(server.address());
  const AccessibilityBus bus(installation.EnvironmentOn(display_));
  Program program(installation.program_file(), {}, bus.environment());
  Player player(user_, program);
  player.WaitForStart();
  const auto fill = [&](const QString& window, const QMap<QString, QString>& boxes,
                        const QString& button) {
    for (const auto& [box, text] : boxes.asKeyValueRange()) {
      bus.Fill(program.pid(), window, box, text);
    }
    bus.Press(program.pid(), window, button);
  };

  const QString login = player.login_dialog().title;
  fill(login, {{"Server:", ""}}, "Login");
  const Window refusal = user_.WaitForWindow(program.pid(), "Server Needed");
  user_.Activate(refusal);
  user_.Press({"Return"});
  user_.WaitUntilGone(refusal);
  fill(login, {{"Server:", "any"}, {"Username:", "Marlow"}, {"Password:", "secret1"}}, "Login");
  server.WaitForClient();
  server.Expect("[con]1.6\001Marlow\001secret1\0"sv);
  server.Send("[con]Marlow\00190\0"sv);
  player.WaitForState("Connected");

  const QString main = player.main_window().title;
  for (const QString& line : {QString("hello"), QString(300, 'x'), QString("again")}) {
    fill(main, {{"Chat line", line}}, "Transmit");
  }
  server.Expect("[ctc]c hello\0[ctc]c again\0"sv);

  player.Open(kStatistics);
  server.Expect("[bre]Marlow\0"sv);
  fill(kStatistics.title, {{"User name", "Aster"}}, "Search User");
  server.Expect("[bre]Aster\0"sv);

  player.Open(kTournament);
  server.Expect("[tif]\0"sv);
  const QMap<QString, QString> figures{{"Entry Fee", "71"},     {"Current Purse", "72"},
                                       {"Current Teams", "73"}, {"Current Players", "74"},
                                       {"Team Name", "Foxes"},  {"Team Password", "den"}};
  fill(kTournament.title, figures, "Create/Join");
  server.Expect("[tjo]Foxes\001den\001\0"sv);
  server.Send("[tdd]Hares\0[msg]cht\001Aster: hail\001False\0"sv);
  QStringList controls;
  WaitUntil("the names have arrived", [&] {
    controls = bus.ControlsOf(program.pid());
    return controls.contains("says\tAster: hail");
  });
  EXPECT_THAT(controls,
              IsSupersetOf({"says\t71", "says\t72", "says\t73", "says\t74", "says\tFoxes"}));
  bus.Press(program.pid(), kTournament.title, "Admin");
  fill(kTournament.title, {{"Entry Fee", "50"}, {"Max Teams", "4"}, {"Max Players", "3"}},
       "Start Tournament");
  server.Expect("[tcr]50\0014\0013\001\0"sv);
}

}  // namespace
}  // namespace korvanta::process

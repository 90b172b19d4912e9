#include <QAccessible>

#include "tests/ui/main_window_test.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// Dictation, on-screen keyboards and switches write into boxes without a key being pressed.
TEST_F(MainWindowTest, WhatAnAssistiveProgramWritesIntoABoxCountsAsTyped) {
  LogIn("90");
  const LoginForm& login = client.login_dialog.form();
  const TournamentTexts& texts = client.tournament.state().texts;
  const std::tuple<const char*, const char*, const std::string&> boxes[] = {
      {"frmMain", "cboSend", client.chat_input.text()},
      {"frmLogin", "cboServer", login.cboServer},
      {"frmLogin", "cboUsernames", login.cboUsernames},
      {"frmLogin", "txtPassword", login.txtPassword},
      {"frmStats", "UserInput", client.statistics.state().UserInput},
      {"frmTournament", "iEntryFee", texts.iEntryFee},
      {"frmTournament", "txtPurse", texts.txtPurse},
      {"frmTournament", "iMaxTeams", texts.iMaxTeams},
      {"frmTournament", "iMaxPlayers", texts.iMaxPlayers},
      {"frmTournament", "cmbTeam", texts.cmbTeam},
      {"frmTournament", "txtPassword", texts.txtPassword},
      {"frmTournament", "EntryFee", texts.EntryFee},
      {"frmTournament", "MaxTeams", texts.MaxTeams},
      {"frmTournament", "MaxPlayers", texts.MaxPlayers}};
  for (const auto& [name, life] : side_windows) {
    life->Show();
  }
  for (const auto& [window_name, name, presented] : boxes) {
    const QWidget& owner = window_name == std::string("frmMain") ? window : Get(window_name);
    auto* control = owner.findChild<QWidget*>(QLatin1String(name));
    auto* line = qobject_cast<QLineEdit*>(control);
    line = line != nullptr ? line : control->findChild<QLineEdit*>();
    QAccessible::queryAccessibleInterface(line)->editableTextInterface()->replaceText(
        0, static_cast<int>(line->text().size()), QLatin1String(name));
    EXPECT_EQ(presented, name) << window_name;
    EXPECT_EQ(line->text().toStdString(), name) << window_name;
  }
}

}  // namespace
}  // namespace korvanta

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>

#include "tests/ui/main_window_test.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// The saved users are Anna (password pass), Bert (none) and LongName.
class FrmLoginTest : public MainWindowTest {
 protected:
  FrmLoginTest() {
    client.login_dialog.window().Unload();
    client.saved_logins.Add({"Anna", "pass"});
    client.saved_logins.Add({"Bert", ""});
    client.saved_logins.Add({"LongName", "longpass"});
  }

  QComboBox& Names() { return Get<QComboBox>("cboUsernames"); }
  QLineEdit& Password() { return Get<QLineEdit>("txtPassword"); }

  /// The window shows this as "server|name|password|saved", and the dialog holds it.
  void ExpectForm(const std::string& expected) {
    const LoginForm& form = client.login_dialog.form();
    EXPECT_EQ(form.cboServer + "|" + form.cboUsernames + "|" + form.txtPassword +
                  (form.chkSave ? "|on" : "|off"),
              expected);
    EXPECT_EQ(ToBytes(Get<QComboBox>("cboServer").currentText() + QLatin1Char('|') +
                      Names().currentText() + QLatin1Char('|') + Password().text()) +
                  (Get<QCheckBox>("chkSave").isChecked() ? "|on" : "|off"),
              expected);
  }
};

TEST_F(FrmLoginTest, TheKeyboardIsWhereSomethingIsNeeded) {
  for (const auto& [user, control] :
       {std::pair{"", "cboUsernames"}, {"Bert", "txtPassword"}, {"Anna", "btnLogin"}}) {
    client.saved_logins.LastUser = user;
    EXPECT_EQ(Open("frmLogin").focusWidget()->objectName(), QLatin1String(control));
    client.login_dialog.window().Unload();
  }
}

TEST_F(FrmLoginTest, ATypedNameTakesOverItsSavedFormAndKeepsTheCaret) {
  Open("frmLogin");
  Type(Names(), "lngname");
  QTest::keyClick(&Names(), Qt::Key_Home);
  QTest::keyClick(&Names(), Qt::Key_Right);
  QTest::keyClicks(&Names(), QStringLiteral("O"));
  ExpectForm("Korvanta Beta Server|LongName|longpass|on");
  EXPECT_EQ(Names().lineEdit()->cursorPosition(), 2);
  Type(Names(), "Ann");  // half a name is not completed
  Type(Get("cboServer"), "here");
  QAccessible::queryAccessibleInterface(&Get("chkSave"))  // which clicks nothing
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::toggleAction());
  Type(Password(), "secret");
  ExpectForm("here|Ann|secret|off");
  EXPECT_EQ(Password().displayText(), QStringLiteral("******"));
  Click("btnClear");
  ExpectForm("|||off");
  Click("btnCancel");
  EXPECT_FALSE(IsOpen("frmLogin"));
}

TEST_F(FrmLoginTest, OnlyTheListsKeysChooseASavedUser) {
  Open("frmLogin");
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Down);
  ExpectForm("Korvanta Beta Server|Anna|pass|on");
  Type(Names(), "longname");
  Password().setText(QStringLiteral("typed"));  // as an assistive program does
  TurnWheelUpAndDown(Names());
  QTest::keyClick(&Names(), Qt::Key_Tab);
  ExpectForm("Korvanta Beta Server|LongName|typed|on");
  QTest::keyClick(&Names(), Qt::Key_Up);  // from the one that was typed
  ExpectForm("Korvanta Beta Server|Bert||off");
  Type(Names(), "anna");
  Type(Password(), "mine5");
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Return);
  EXPECT_FALSE(IsOpen("frmLogin"));
  EXPECT_EQ(client.values.CurrentPassword, "mine5");
}

TEST_F(FrmLoginTest, RemoveUserIsReachedByMouseAndByKeyboard) {
  Open("frmLogin");
  Type(Names(), "Bert");
  platform.message_box.answers = {false, true};
  Click("imgDispose");
  ExpectForm("Korvanta Beta Server|Bert||off");
  QTest::keyClick(&Names(), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return platform.message_box.asked.size() == 2; }));
  ExpectForm("|||off");
  EXPECT_EQ(Names().count(), 2);
}

}  // namespace
}  // namespace korvanta

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QWheelEvent>

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

TEST_F(FrmLoginTest, TabGoesInTheOrderThatPlayersKnow) {
  QWidget& frame = Open("frmLogin");
  Get("cboServer").setFocus();
  for (const char* next : {"cboUsernames", "txtPassword", "btnLogin", "chkSave", "btnClear",
                           "btnCancel", "cboServer"}) {
    QTest::keyClick(frame.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(frame.focusWidget()->objectName(), QLatin1String(next));
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
}

TEST_F(FrmLoginTest, ChoosingFromTheListFillsThePasswordAndTheWheelChoosesNobody) {
  Open("frmLogin");
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Down);
  ExpectForm("Korvanta Beta Server|Anna|pass|on");
  Type(Names(), "longname");
  Type(Names(), "longname");
  Type(Password(), "typed");
  const QPointF middle = Names().rect().center();
  QWheelEvent wheel(middle, Names().mapToGlobal(middle), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&Names(), &wheel);
  ExpectForm("Korvanta Beta Server|LongName|typed|on");
  QTest::keyClick(&Names(), Qt::Key_Up);  // from the one that was typed
  ExpectForm("Korvanta Beta Server|Bert||off");
}

TEST_F(FrmLoginTest, LeavingTheNameBoxOrPressingEnterInItIsNoChoice) {
  Open("frmLogin");
  Type(Names(), "anna");
  Type(Password(), "mine5");
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Tab);
  ExpectForm("Korvanta Beta Server|Anna|mine5|on");
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Return);
  EXPECT_FALSE(IsOpen("frmLogin"));
  EXPECT_EQ(client.values.CurrentPassword, "mine5");
}

TEST_F(FrmLoginTest, ThePasswordIsMaskedAndNeitherCopiedNorBroughtBack) {
  client.saved_logins.LastUser = "Anna";
  Open("frmLogin");
  EXPECT_EQ(Password().displayText(), QStringLiteral("****"));
  Type(Password(), "secret9");
  QApplication::clipboard()->setText(QStringLiteral("before"));
  for (const Qt::Key key : {Qt::Key_C, Qt::Key_X}) {
    QTest::keyClick(&Password(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Password(), key, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
  }
  Click("btnClear");
  Password().setFocus();
  QTest::keyClick(&Password(), Qt::Key_Z, Qt::ControlModifier);
  ExpectForm("|||on");
  Click("btnCancel");
  EXPECT_FALSE(IsOpen("frmLogin"));
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

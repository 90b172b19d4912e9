#include "ui/windows/frmLogin.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <gmock/gmock.h>

#include "tests/fakes/logged_in_player.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The window of a dialog whose saved users are Anna (password pass), Bert (none) and LongName.
class FrmLoginTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  FrmLoginTest() {
    saved.Add({"Anna", "pass"});
    saved.Add({"Bert", ""});
    saved.Add({"LongName", "longpass"});
  }

  void Open() {
    dialog.window().Show();
    frame = std::make_unique<frmLogin>(dialog, nullptr);
    frame->show();
    frame->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  }

  template <typename Control>
  Control& Get(const char* name) {
    auto* control = frame->findChild<Control*>(QLatin1String(name));
    EXPECT_NE(control, nullptr) << name;
    return *control;
  }
  QComboBox& Names() { return Get<QComboBox>("cboUsernames"); }
  QLineEdit& Password() { return Get<QLineEdit>("txtPassword"); }

  void TypeOver(QWidget& box, const char* text) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, QLatin1String(text));
  }
  /// "server|name|password|saved" as the window shows it.
  std::string Shown() {
    return ToBytes(Get<QComboBox>("cboServer").currentText() + QLatin1Char('|') +
                   Names().currentText() + QLatin1Char('|') + Password().text()) +
           (Get<QCheckBox>("chkSave").isChecked() ? "|on" : "|off");
  }
  /// The same as the dialog holds it.
  std::string Held() const {
    const LoginForm& form = dialog.form();
    return form.cboServer + "|" + form.cboUsernames + "|" + form.txtPassword +
           (form.chkSave ? "|on" : "|off");
  }
  void ExpectForm(const std::string& form) {
    EXPECT_EQ(Shown(), form);
    EXPECT_EQ(Held(), form);
  }

  SavedLogins saved;
  LoginDialog dialog{connection, values, saved, platform.message_box};
  std::unique_ptr<frmLogin> frame;
};

TEST_F(FrmLoginTest, ControlsAreNamedAndFollowTheTabOrder) {
  Open();
  EXPECT_EQ(frame->windowTitle(), QStringLiteral("Connection Screen"));
  EXPECT_FALSE(frame->isModal());
  EXPECT_FALSE(Get<QToolButton>("imgDispose").accessibleName().isEmpty());
  Get<QComboBox>("cboServer").setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 8; ++i) {
    EXPECT_FALSE(frame->focusWidget()->accessibleName().isEmpty()) << i;
    order.push_back(frame->focusWidget()->objectName().toStdString());
    QTest::keyClick(frame->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("cboServer", "cboUsernames", "txtPassword", "btnLogin", "chkSave",
                                 "btnClear", "btnCancel", "cboServer"));
}

TEST_F(FrmLoginTest, ATypedNameTakesOverItsSavedFormAndKeepsTheCaret) {
  Open();
  TypeOver(Names(), "anna");
  ExpectForm("Korvanta Beta Server|Anna|pass|on");
  TypeOver(Names(), "lngname");
  ExpectForm("Korvanta Beta Server|lngname||on");
  QTest::keyClick(&Names(), Qt::Key_Home);
  QTest::keyClick(&Names(), Qt::Key_Right);
  QTest::keyClicks(&Names(), QStringLiteral("O"));
  ExpectForm("Korvanta Beta Server|LongName|longpass|on");
  EXPECT_EQ(Names().lineEdit()->cursorPosition(), 2);
  // Half a name is not completed.
  TypeOver(Names(), "Ann");
  ExpectForm("Korvanta Beta Server|Ann||on");
  EXPECT_EQ(Names().count(), 3);
}

TEST_F(FrmLoginTest, ChoosingFromTheListFillsThePassword) {
  Open();
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Down);
  ExpectForm("Korvanta Beta Server|Anna|pass|on");
  QTest::keyClick(&Names(), Qt::Key_Down);
  ExpectForm("Korvanta Beta Server|Bert||off");
  QTest::keyClick(&Names(), Qt::Key_Up);
}

TEST_F(FrmLoginTest, TheWheelChoosesNobody) {
  Open();
  TypeOver(Password(), "typed");
  const QPointF middle = Names().rect().center();
  QWheelEvent wheel(middle, Names().mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&Names(), &wheel);
  ExpectForm("Korvanta Beta Server||typed|off");
}

TEST_F(FrmLoginTest, LeavingTheNameBoxOrPressingEnterInItIsNoChoice) {
  saved.LastUser = "Bert";
  Open();
  QTest::keyClicks(&Password(), QStringLiteral("1234"));
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Tab);
  ExpectForm("Korvanta Beta Server|Bert|1234|off");

  dialog.UserNameTyped("anna");
  TypeOver(Password(), "mine5");
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Return);
  EXPECT_EQ(values.CurrentUserName, "Anna");
  EXPECT_EQ(values.CurrentPassword, "mine5");
}

TEST_F(FrmLoginTest, EnterLogsInAndEscapeAndTheFrameUnload) {
  for (const char* box : {"cboServer", "cboUsernames", "txtPassword", "chkSave", "btnLogin"}) {
    saved.LastUser = "Anna";
    Open();
    Get<QWidget>(box).setFocus();
    QTest::keyClick(&Get<QWidget>(box), Qt::Key_Enter);
    EXPECT_THAT(platform.message_box.shown, IsEmpty());
    EXPECT_EQ(dialog.window().state(), WindowLife::State::Absent) << box;
  }
  EXPECT_EQ(platform.socket.attempts.size(), 5U);
  const std::function<void()> ends[] = {
      [this] { QTest::keyClick(&Names(), Qt::Key_Escape); }, [this] { frame->close(); },
      [this] { QTest::mouseClick(&Get<QPushButton>("btnCancel"), Qt::LeftButton); }};
  for (const auto& end : ends) {
    Open();
    end();
    EXPECT_EQ(dialog.window().state(), WindowLife::State::Absent);
  }
  EXPECT_EQ(platform.socket.attempts.size(), 5U);
}

TEST_F(FrmLoginTest, ThePasswordIsMaskedAndNeitherCopiedNorBroughtBack) {
  saved.LastUser = "Anna";
  Open();
  EXPECT_EQ(Password().displayText(), QStringLiteral("****"));
  TypeOver(Password(), "secret9");
  QApplication::clipboard()->setText(QStringLiteral("before"));
  for (const Qt::Key key : {Qt::Key_C, Qt::Key_X}) {
    QTest::keyClick(&Password(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Password(), key, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
  }
  QTest::mouseClick(&Get<QPushButton>("btnClear"), Qt::LeftButton);
  Password().setFocus();
  QTest::keyClick(&Password(), Qt::Key_Z, Qt::ControlModifier);
  ExpectForm("|||on");
}

TEST_F(FrmLoginTest, RemoveUserIsReachedByMouseAndByKeyboard) {
  Open();
  TypeOver(Names(), "Bert");
  platform.message_box.answers = {false, true};
  QTest::mouseClick(&Get<QToolButton>("imgDispose"), Qt::LeftButton);
  ExpectForm("Korvanta Beta Server|Bert||off");
  QTest::keyClick(&Names(), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return platform.message_box.asked.size() == 2; }));
  ExpectForm("|||off");
  EXPECT_EQ(Names().count(), 2);
  EXPECT_EQ(Names().currentIndex(), -1);
}

}  // namespace
}  // namespace korvanta

#include <QClipboard>
#include <QComboBox>
#include <QLabel>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

class ChatBoxTest : public MainWindowTest {
 protected:
  ChatBoxTest() { LogIn(); }

  void Type(const std::string& text) { QTest::keyClicks(&box, QString::fromStdString(text)); }

  ChatInput& input = client.chat_input;
  QComboBox& box = Get<QComboBox>("cboSend");
  QLabel& remaining = Get<QLabel>("lblRemaining");
};

TEST_F(ChatBoxTest, TypingIsNeitherCompletedNorChanged) {
  for (const char* line : {"hello", "hello", "Hello"}) {
    Type(line);
    input.SendChatLine();
  }
  EXPECT_EQ(box.count(), 3);
  Type("c h");
  EXPECT_EQ(box.currentText().toStdString(), "c h");
  EXPECT_FALSE(box.lineEdit()->hasSelectedText());
}

TEST_F(ChatBoxTest, UpAndDownRecallWhatWasTypedAndTheListHoldsWhatWasSent) {
  Type("/who");
  input.SendChatLine();
  EXPECT_EQ(box.itemText(0), QStringLiteral("who"));
  Type("draft");
  for (const Qt::KeyboardModifier pad : {Qt::NoModifier, Qt::KeypadModifier}) {
    QTest::keyClick(box.lineEdit(), Qt::Key_Up, pad);
    EXPECT_EQ(box.currentText().toStdString(), "/who");
    EXPECT_EQ(box.lineEdit()->cursorPosition(), 4);
    QTest::keyClick(box.lineEdit(), Qt::Key_Down, pad);
    EXPECT_EQ(box.currentText().toStdString(), "draft");
  }
  QTest::keyClick(box.lineEdit(), Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&box, Qt::Key_PageDown);
  EXPECT_EQ(box.currentText().toStdString(), "draft");
}

TEST_F(ChatBoxTest, TheRemainingCharactersAppearNearTheLimit) {
  Type(std::string(199, 'x'));
  EXPECT_FALSE(remaining.isVisible());
  Type("x");
  EXPECT_TRUE(remaining.isVisible());
  EXPECT_EQ(remaining.text(), QStringLiteral("50"));
  Type(std::string(51, 'y'));
  EXPECT_EQ(remaining.text(), QStringLiteral("-1"));
}

TEST_F(ChatBoxTest, CharactersOutsideTheSetStayInTheBoxAndLeaveAsQuestionMarks) {
  QGuiApplication::clipboard()->setText(QStringLiteral(u"\u03a9 caf\u00e9"));
  box.lineEdit()->paste();
  EXPECT_EQ(box.lineEdit()->text(), QStringLiteral(u"\u03a9 caf\u00e9"));
  EXPECT_EQ(input.text(), "? caf\xe9");
}

}  // namespace
}  // namespace korvanta

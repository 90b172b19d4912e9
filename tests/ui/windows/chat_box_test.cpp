#include "ui/windows/chat_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

class ChatBoxTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  ChatBoxTest() {
    values.IsConnected = true;
    input.on_changed = [this] { box.Refresh(); };
    box.resize(400, 34);
    box.show();
    box.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&box));
  }

  void Type(const char* text) { QTest::keyClicks(box.lineEdit(), QString::fromLatin1(text)); }
  void Press(Qt::Key key) { QTest::keyClick(&box, key); }
  std::string Shown() const { return box.lineEdit()->text().toStdString(); }
  QLabel& Remaining() const { return *box.findChild<QLabel*>(QStringLiteral("lblRemaining")); }

  Options options;
  ChatInput input{connection, options};
  ChatBox box{input, nullptr};
};

TEST_F(ChatBoxTest, TypingIsNeitherCompletedNorChanged) {
  for (const char* line : {"hello", "hello", "Hello"}) {
    Type(line);
    input.SendChatLine();
  }
  EXPECT_EQ(box.count(), 3);
  Type("c h");
  EXPECT_EQ(Shown(), "c h");
  EXPECT_FALSE(box.lineEdit()->hasSelectedText());
}

TEST_F(ChatBoxTest, UpAndDownWalkTheHistoryAndBringTheDraftBack) {
  Type("one");
  input.SendChatLine();
  Type("draft");
  for (const Qt::KeyboardModifier pad : {Qt::NoModifier, Qt::KeypadModifier}) {
    QTest::keyClick(box.lineEdit(), Qt::Key_Up, pad);
    EXPECT_EQ(Shown(), "c one");
    QTest::keyClick(box.lineEdit(), Qt::Key_Down, pad);
    EXPECT_EQ(Shown(), "draft");
  }
  QTest::keyClick(box.lineEdit(), Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Shown(), "draft");
}

TEST_F(ChatBoxTest, TheRemainingCharactersAppearNearTheLimit) {
  Type(std::string(199, 'x').c_str());
  EXPECT_FALSE(Remaining().isVisible());
  Type("x");
  EXPECT_TRUE(Remaining().isVisible());
  EXPECT_EQ(Remaining().text(), QStringLiteral("50"));
  Type(std::string(51, 'y').c_str());
  EXPECT_EQ(Remaining().text(), QStringLiteral("-1"));
}

TEST_F(ChatBoxTest, CharactersOutsideTheSetStayInTheBoxAndLeaveAsQuestionMarks) {
  QGuiApplication::clipboard()->setText(QStringLiteral(u"\u03a9 caf\u00e9"));
  box.lineEdit()->paste();
  EXPECT_EQ(box.lineEdit()->text(), QStringLiteral(u"\u03a9 caf\u00e9"));
  EXPECT_EQ(input.text(), "? caf\xe9");
}

}  // namespace
}  // namespace korvanta

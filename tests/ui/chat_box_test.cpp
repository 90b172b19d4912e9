#include "ui/chat_box.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "tests/fakes/fake_platform.h"
#include "tests/fakes/recorders.h"

namespace korvanta {
namespace {

class ChatBoxTest : public testing::Test {
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

  fakes::FakeSocket socket;
  fakes::FakeTimers timers;
  fakes::RecordingChat chat;
  fakes::RecordingDisplay display;
  ConnectionValues values;
  Options options;
  Connection connection{socket, timers, values, chat, display, "127.0.0.1"};
  ChatInput input{connection, options};
  ChatBox box{input, nullptr};
};

TEST_F(ChatBoxTest, TypingIsNeitherCompletedNorChanged) {
  for (const char* line : {"hello", "hello", "Hello"}) {
    Type(line);
    input.SendChatLine();
  }
  EXPECT_EQ(box.count(), 3);
  EXPECT_EQ(box.itemText(0), QStringLiteral("c hello"));
  EXPECT_EQ(box.itemText(1), QStringLiteral("c hello"));
  EXPECT_EQ(Shown(), "");
  Type("c h");
  EXPECT_EQ(Shown(), "c h");
  EXPECT_FALSE(box.lineEdit()->hasSelectedText());
  EXPECT_EQ(input.text(), "c h");
}

TEST_F(ChatBoxTest, UpAndDownWalkTheHistoryAndBringTheDraftBack) {
  Type("one");
  input.SendChatLine();
  Type("two");
  input.SendChatLine();
  Type("draft");
  Press(Qt::Key_Up);
  EXPECT_EQ(Shown(), "c two");
  Press(Qt::Key_Up);
  EXPECT_EQ(Shown(), "c one");
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(Shown(), "draft");
  EXPECT_EQ(box.count(), 2);
}

TEST_F(ChatBoxTest, AChosenLineStandsInTheBoxAlsoTheSecondTime) {
  Type("one");
  input.SendChatLine();
  for (int round = 0; round < 2; ++round) {
    box.showPopup();
    QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &box,
                    Qt::Key_Escape);
    box.hidePopup();
    Q_EMIT box.activated(0);
    EXPECT_EQ(Shown(), "c one");
    Type("!");
    EXPECT_EQ(input.text(), "c one!");
    box.lineEdit()->clear();
    input.TextEdited("");
  }
}

TEST_F(ChatBoxTest, TheRemainingCharactersAppearNearTheLimitWithoutMovingAnything) {
  Type(std::string(199, 'x').c_str());
  EXPECT_FALSE(Remaining().isVisible());
  const QRect line = box.lineEdit()->geometry();
  const QMargins margins = box.lineEdit()->textMargins();
  Type("x");
  EXPECT_TRUE(Remaining().isVisible());
  EXPECT_EQ(Remaining().text(), QStringLiteral("50"));
  Type(std::string(51, 'y').c_str());
  EXPECT_EQ(Remaining().text(), QStringLiteral("-1"));
  EXPECT_EQ(box.lineEdit()->geometry(), line);
  EXPECT_EQ(box.lineEdit()->textMargins(), margins);
}

TEST_F(ChatBoxTest, CharactersOutsideTheSetStayInTheBoxAndLeaveAsQuestionMarks) {
  QGuiApplication::clipboard()->setText(QStringLiteral(u"\u03a9 caf\u00e9"));
  box.lineEdit()->paste();
  EXPECT_EQ(box.lineEdit()->text(), QStringLiteral(u"\u03a9 caf\u00e9"));
  EXPECT_EQ(input.text(), "? caf\xe9");
}

}  // namespace
}  // namespace korvanta

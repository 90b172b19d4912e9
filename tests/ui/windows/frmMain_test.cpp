#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeView>
#include <QWindow>
#include <gmock/gmock.h>

#include "tests/ui/main_window_test.h"
#include "ui/board/board_layout.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class frmMainTest : public MainWindowTest {
 protected:
  using MainWindowTest::Type;
  void Type(const std::string& text) { QTest::keyClicks(&box, QString::fromStdString(text)); }

  QComboBox& box = Get<QComboBox>("cboSend");
};

TEST_F(frmMainTest, TitleAndMenusFollowTheConnectionAndTheOptions) {
  const auto expect = [this](const QString& connection, const char* item) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - ") + connection);
    EXPECT_EQ(Get<QAction>("mnuDisCon").text(), QLatin1String(item));
  };
  expect(QStringLiteral("Disconnected"), "&Connect");
  LogIn();
  expect(QStringLiteral("Connected"), "&Disconnect");
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[dis]")));
  QAction& filter = Get<QAction>("mnuFilter");
  for (const bool on : {true, false, true}) {
    EXPECT_EQ(filter.isChecked(), on);
    EXPECT_EQ(client.options.mnuFilter, on);
    filter.trigger();
  }
}

TEST_F(frmMainTest, TheChatLineIsSentUpToItsLimitWhichShowsInTime) {
  LogIn();
  EXPECT_EQ(QApplication::focusWidget(), &box);
  QPushButton& send = Get<QPushButton>("btnSend");
  const std::function<void()> ways[] = {[&] { QTest::keyClick(&box, Qt::Key_Return); },
                                        [&] { QTest::mouseClick(&send, Qt::LeftButton); },
                                        [&] { QTest::keyClick(&send, Qt::Key_Return); }};
  const QLabel& remaining = Get<QLabel>("lblRemaining");
  const struct {
    std::size_t length;
    const char* remaining;
    bool is_sent;
  } cases[] = {{199, "", true}, {200, "50", true}, {251, "-1", false}};
  for (const auto& way : ways) {
    for (const auto& c : cases) {
      Type(box, "");
      Type(std::string(c.length, 'x'));
      EXPECT_EQ(remaining.isVisible() ? remaining.text() : QString(), QLatin1String(c.remaining));
      EXPECT_EQ(send.isEnabled(), c.is_sent);
      way();
      EXPECT_EQ(TakeSent().size(), c.is_sent ? 1U : 0U);
      EXPECT_EQ(box.currentText().isEmpty(), c.is_sent);
    }
  }
}

TEST_F(frmMainTest, TheChatLineKeepsWhatIsTypedAndRecallsAndListsWhatWasSent) {
  LogIn();
  for (const char* line : {"chat", "chat", "/who"}) {
    Type(line);
    QTest::keyClick(&box, Qt::Key_Return);
  }
  EXPECT_EQ(box.count(), 3);
  EXPECT_EQ(box.itemText(2), QStringLiteral("who"));
  Type("c c");
  EXPECT_FALSE(box.lineEdit()->hasSelectedText());  // which a completion would be
  for (const Qt::KeyboardModifier pad : {Qt::NoModifier, Qt::KeypadModifier}) {
    QTest::keyClick(&box, Qt::Key_Up, pad);
    EXPECT_EQ(box.currentText(), QStringLiteral("/who"));
    EXPECT_EQ(box.lineEdit()->cursorPosition(), 4);
    QTest::keyClick(&box, Qt::Key_Down, pad);
    EXPECT_EQ(box.currentText(), QStringLiteral("c c"));
  }
  QTest::keyClick(&box, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&box, Qt::Key_PageDown);
  QGuiApplication::clipboard()->setText(QStringLiteral(u"\u03a9"));  // outside the character set
  box.lineEdit()->paste();
  EXPECT_EQ(box.currentText(), QStringLiteral(u"c c\u03a9"));
}

TEST_F(frmMainTest, OpenedByTheMouseAMenuHasNoItemChosenAndOpenedByTheKeyboardItsFirst) {
  LogIn();
  Receive("[onl]Bob\0011\0011\0010\002Cid\0011\0011\0010");
  auto& board = Get("ResearchBoard");
  auto& list = Get<QTreeView>("lstOnline");
  const QPoint box_three = board_layout::BoxRect(6).center();
  const auto click_cid = [&list](Qt::MouseButton button) {
    const QRect cid = list.visualRect(list.model()->index(1, 0));
    QTest::mouseClick(list.viewport(), button, {}, cid.center());
  };
  const struct {
    const char* menu;
    std::function<void()> open;
    std::vector<std::string> sent;
  } cases[] = {
      {"mPopMenu", [&] { QTest::mouseClick(&board, Qt::RightButton, {}, box_three); }, {}},
      {"mPopMenu", [&] { QTest::keyClick(&board, Qt::Key_Menu); }, {Message("[upg]1\0011\001")}},
      {"mnuWarMenu", [&] { click_cid(Qt::RightButton); }, {}},
      {"mnuWarMenu",
       [&] { click_cid(Qt::LeftButton), QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier); },
       {Message("[att]Cid")}},
  };
  for (const auto& c : cases) {
    auto& menu = Get<QMenu>(c.menu);
    c.open();
    ASSERT_TRUE(menu.isVisible()) << c.menu << c.sent.size();
    Receive("[onl]Dan\0011\0011\0010\002Cid\0011\0011\0010");  // the menu stays with Cid
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_THAT(TakeSent(), ElementsAreArray(c.sent)) << c.menu;
    menu.close();
  }
}

TEST_F(frmMainTest, ItIsNoSmallerThanItsContentAndResizingMovesNothing) {
  const QWidget& content = *Get<QScrollArea>("fittingArea").widget();
  const QRect place = content.geometry();
  const QSize size = window.size();
  window.resize(700, 400);
  EXPECT_EQ(window.size(), size);
  window.resize(1300, 730);
  EXPECT_EQ(content.geometry(), place);
}

TEST_F(frmMainTest, OnASmallScreenWhatHasTheKeyboardScrollsIntoSight) {
  QScreen* const small = QApplication::screens().back();
  window.windowHandle()->setScreen(small);
  window.move(small->geometry().topLeft());

  auto& area = Get<QScrollArea>("fittingArea");
  auto& board = Get("ResearchBoard");
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.minimumHeight() < 600; }));
  for (const bool is_small : {false, true}) {
    window.resize(is_small ? QSize(700, 400) : QSize(1200, 700));
    for (const QScrollBar* bar : {area.horizontalScrollBar(), area.verticalScrollBar()}) {
      EXPECT_EQ(bar->isVisible(), is_small);
      EXPECT_EQ(bar->maximum() > 0, is_small);
    }
  }
  for (const char* name : {"btnSend", "lstOnline", "ResearchBoard"}) {
    auto& control = Get(name);
    control.setFocus();
    const QRect place = &control == &board ? board_layout::BoxRect(0) : control.rect();
    EXPECT_EQ(control.visibleRegion().intersected(place), QRegion(place)) << name;
  }
  for (int i = 0; i < kTopLevel; ++i) {
    QTest::keyClick(&board, Qt::Key_Right);
  }
  const QRect goal = board_layout::BoxRect(board_layout::kGoldenIndex);
  EXPECT_EQ(board.visibleRegion().intersected(goal), QRegion(goal));
}

TEST_F(frmMainTest, FindIsReachedFromTheChatLineAndLeavesTheMenusTheirKeys) {
  LogIn();
  QTest::keyClick(&box, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String("txtFind"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[jon]")));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &box);
}

}  // namespace
}  // namespace korvanta

#include <QAction>
#include <QApplication>
#include <QComboBox>
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
using testing::IsEmpty;

class frmMainTest : public MainWindowTest {
 protected:
  QComboBox& ChatBox() { return Get<QComboBox>("cboSend"); }
  /// The middle of an entry of the online list.
  QPoint Entry(int row) {
    auto& list = Get<QTreeView>("lstOnline");
    return list.visualRect(list.model()->index(row, 0)).center();
  }
};

TEST_F(frmMainTest, TitleAndConnectItemFollowTheConnection) {
  QAction& connect = Get<QAction>("mnuDisCon");
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Disconnected"));
  EXPECT_EQ(connect.text(), QStringLiteral("&Connect"));
  LogIn();
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Connected"));
  EXPECT_EQ(connect.text(), QStringLiteral("&Disconnect"));
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[dis]")));
}

TEST_F(frmMainTest, EnterAndTheButtonSendWhatWasTypedUpToTheLimit) {
  LogIn();
  EXPECT_EQ(QApplication::focusWidget(), &ChatBox());
  QTest::keyClicks(&ChatBox(), QStringLiteral("hello"));
  QTest::keyClick(&ChatBox(), Qt::Key_Return);
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[ctc]c hello")));
  EXPECT_EQ(ChatBox().currentText(), QString());

  QPushButton& send = Get<QPushButton>("btnSend");
  QTest::keyClicks(&ChatBox(), QString(251, QLatin1Char('x')));
  EXPECT_FALSE(send.isEnabled());
  QTest::keyClick(&ChatBox(), Qt::Key_Return);
  QTest::mouseClick(&send, Qt::LeftButton);
  EXPECT_THAT(TakeSent(), IsEmpty());
  QTest::keyClick(&ChatBox(), Qt::Key_Backspace);
  send.setFocus();
  QTest::keyClick(&send, Qt::Key_Return);
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[ctc]c " + std::string(250, 'x'))));
}

TEST_F(frmMainTest, CheckMarksFollowTheOptions) {
  QAction& action = Get<QAction>("mnuFilter");
  for (const bool on : {true, false, true}) {
    EXPECT_EQ(action.isChecked(), on);
    EXPECT_EQ(client.options.mnuFilter, on);
    action.trigger();
  }
}

TEST_F(frmMainTest, OpenedByTheMouseAMenuHasNoItemChosenAndOpenedByTheKeyboardItsFirst) {
  LogIn();
  Receive("[onl]Bob\0011\0011\0010\002Cid\0011\0011\0010");
  auto& board = Get("ResearchBoard");
  auto& list = Get<QTreeView>("lstOnline");
  const std::function<void()> by_keyboard[] = {
      [&] { QTest::keyClick(&board, Qt::Key_Menu); },
      [&] { QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier); }};
  const std::function<void()> by_mouse[] = {
      [&] { QTest::mouseClick(&board, Qt::RightButton, {}, board_layout::BoxRect(6).center()); },
      [&] { QTest::mouseClick(list.viewport(), Qt::RightButton, {}, Entry(1)); }};
  const char* const menus[] = {"mPopMenu", "mnuWarMenu"};
  const std::string sent[][2] = {{"[upg]2\0013\001", "[upg]1\0011\001"}, {"[att]Cid", "[att]Cid"}};
  for (const std::size_t i : {0U, 1U}) {
    auto& menu = Get<QMenu>(menus[i]);
    by_mouse[i]();
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_THAT(TakeSent(), IsEmpty()) << menus[i];
    if (i == 1) {
      Receive("[onl]Dan\0011\0011\0010\002Cid\0011\0011\0010");  // the menu is for Cid all the same
    }
    menu.actions().constFirst()->trigger();
    menu.close();
    EXPECT_THAT(TakeSent(), ElementsAre(Message(sent[i][0])));

    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Entry(1));
    by_keyboard[i]();
    ASSERT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_THAT(TakeSent(), ElementsAre(Message(sent[i][1])));
    EXPECT_FALSE(menu.isVisible());
  }
}

TEST_F(frmMainTest, ItIsNoSmallerThanItsContentAndResizingMovesNothing) {
  const auto places = [&] {
    std::vector<QRect> rects;
    for (const char* name : {"rbMessages", "cboSend", "btnSend", "lstOnline"}) {
      rects.push_back(Get(name).geometry());
    }
    return rects;
  };
  const std::vector<QRect> before = places();
  const QSize size = window.size();
  window.resize(700, 400);
  EXPECT_EQ(window.size(), size);
  window.resize(1300, 730);
  EXPECT_EQ(places(), before);
}

TEST_F(frmMainTest, OnASmallScreenWhatHasTheKeyboardScrollsIntoSight) {
  QScreen* const small = QApplication::screens().back();
  window.windowHandle()->setScreen(small);
  window.move(small->geometry().topLeft());

  auto& area = Get<QScrollArea>("fittingArea");
  auto& board = Get("ResearchBoard");
  const auto bars = [&] {
    return std::pair(area.horizontalScrollBar()->isVisible(),
                     area.verticalScrollBar()->isVisible());
  };
  window.resize(1200, 700);
  EXPECT_EQ(bars(), std::pair(false, false));
  EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.minimumHeight() < 600; }));
  window.resize(700, 400);
  EXPECT_EQ(bars(), std::pair(true, true));
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

TEST_F(frmMainTest, FindIsReachedFromTheChatLineAndByTab) {
  QTest::keyClick(&ChatBox(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  Get("rbMessages").setFocus();
  for (const char* next : {"txtFind", "btnOlder", "btnNewer", "btnCloseFind", "cboSend"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(next));
  }
  Get("txtFind").setFocus();
  LogIn();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[jon]")));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &ChatBox());
}

}  // namespace
}  // namespace korvanta

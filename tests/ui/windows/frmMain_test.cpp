#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>

#include "tests/ui/main_window_test.h"
#include "ui/board/board_layout.h"
#include "ui/kit/theme.h"
#include "ui/windows/frmSplash.h"

namespace korvanta {
namespace {

using std::chrono_literals::operator""ms;

struct frmMainTest : MainWindowTest {
  QComboBox& box = Get<QComboBox>("cboSend");
};

TEST_F(frmMainTest, TitleAndMenusFollowTheConnectionAndTheOptions) {
  const QAction& filter = Get<QAction>("mnuFilter");
  EXPECT_TRUE(filter.isChecked());
  client.main_window.Toggle(&Options::mnuFilter);
  EXPECT_FALSE(filter.isChecked());
  LogIn();
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Connected"));
  EXPECT_EQ(Get<QAction>("mnuDisCon").text(), QStringLiteral("&Disconnect"));
}

TEST_F(frmMainTest, TheChatLineIsSentUpToItsLimitWhichShowsInTime) {
  LogIn();
  EXPECT_EQ(QApplication::focusWidget(), &box);
  QPushButton& send = Get<QPushButton>("btnSend");
  const QLabel& remaining = Get<QLabel>("lblRemaining");
  const std::tuple<std::size_t, const char*, bool> cases[] = {
      {199, "", true}, {200, "50", true}, {250, "0", true}, {251, "-1", false}};
  for (QWidget* pressed : std::initializer_list<QWidget*>{&box, &send}) {
    for (const auto& [length, shown, is_sent] : cases) {
      Type(box, std::string(length, 'x').c_str());
      EXPECT_EQ(remaining.isVisible() ? remaining.text() : QString(), QLatin1String(shown));
      const bool warns = remaining.palette().windowText() == theme::kWarning;
      EXPECT_EQ(remaining.isVisible() && warns, !is_sent);
      EXPECT_EQ(send.isEnabled(), is_sent);
      QTest::keyClick(pressed, Qt::Key_Return);
      EXPECT_EQ(TakeSent().size(), is_sent ? 1U : 0U);
      EXPECT_EQ(box.currentText().isEmpty(), is_sent);
    }
  }
}

TEST_F(frmMainTest, TheChatLineKeepsItsTextAndKeyboardAndRecallsAndListsWhatWasSent) {
  LogIn();
  for (const char* line : {"chat", "chat", "/who"}) {
    Type(box, line);
    QTest::keyClick(&box, Qt::Key_Return);
  }
  EXPECT_EQ(box.count(), 3);
  EXPECT_EQ(box.itemText(2), QStringLiteral("who"));
  Type(box, "c c");
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
  QTest::keyClick(&box, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);  // in "Find"
  EXPECT_EQ(QApplication::focusWidget(), &box);
  EXPECT_EQ(box.currentText(), QStringLiteral(u"c c\u03a9"));
}

TEST_F(frmMainTest, SmallerThanItsContentOnASmallScreenAloneWhereTheFocusScrollsIntoSight) {
  auto& area = Get<QScrollArea>("fittingArea");
  auto& board = Get("ResearchBoard");
  const QSize size = window.size();
  const QRect place = area.widget()->geometry();
  const auto expect_bars = [&](QSize wanted, bool shown) {
    window.resize(wanted);
    for (const QScrollBar* bar : {area.horizontalScrollBar(), area.verticalScrollBar()}) {
      EXPECT_EQ(bar->isVisible(), shown);
      EXPECT_EQ(bar->maximum() > 0, shown);
    }
    EXPECT_EQ(area.widget()->geometry(), place);
  };
  expect_bars({1300, 730}, false);
  expect_bars({700, 400}, false);
  EXPECT_EQ(window.size(), size);

  QScreen* const small = QApplication::screens().back();
  window.windowHandle()->setScreen(small);
  window.move(small->geometry().topLeft());
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.minimumHeight() < 600; }));
  expect_bars({1200, 700}, false);
  expect_bars({700, 400}, true);
  for (const char* name : {"btnSend", "lstOnline", "ResearchBoard"}) {
    auto& control = Get(name);
    control.setFocus();
    const QRect seen = &control == &board ? board_layout::BoxRect(0) : control.rect();
    EXPECT_EQ(control.visibleRegion().intersected(seen), QRegion(seen)) << name;
  }
  area.horizontalScrollBar()->setValue(0);
  for (int i = 0; i < kTopLevel; ++i) {
    QTest::keyClick(&board, Qt::Key_Right);
  }
  const QRect goal = board_layout::BoxRect(board_layout::kGoldenIndex);
  EXPECT_EQ(board.visibleRegion().intersected(goal), QRegion(goal));
}

TEST(Splash, ShowsHowLoadingGoesAndGivesWayToNobodyForFourSeconds) {
  fakes::FakePlatform platform;
  Client client(platform.platform(),
                {.rights_notice = {"All rights reserved", "The Maker", "2002-2024"}});
  frmSplash splash(client.splash);
  client.splash.window().on_unload = [&] { splash.hide(); };
  frmMain main_window(client);
  ASSERT_TRUE(client.StartUp());
  splash.show();
  for (const char* dots : {"", ".", "..", "...", "....", "."}) {
    QStringList shown;
    for (const char* label :
         {"Label1", "Label3", "Label4", "Label5(0)", "Label5(1)", "Label5(2)"}) {
      shown.append(splash.findChild<QLabel*>(QLatin1String(label))->text());
    }
    EXPECT_EQ(shown.join(QLatin1Char('|')).toStdString(),
              std::string("Korvanta|Version: 1.6|Now Loading") + dots +
                  "|All rights reserved|The Maker|2002-2024");
    platform.timers.Tick(200ms);
  }

  QCloseEvent by_the_user;
  QSpontaneKeyEvent::setSpontaneous(&by_the_user);
  qApp->notify(&splash, &by_the_user);
  EXPECT_FALSE(by_the_user.isAccepted());
  EXPECT_EQ(client.splash.window().state(), WindowLife::State::Shown);
  EXPECT_TRUE(splash.isVisible() && !main_window.isVisible());
  platform.timers.Tick(4000ms);
  EXPECT_TRUE(!splash.isVisible() && main_window.isVisible());
}

}  // namespace
}  // namespace korvanta

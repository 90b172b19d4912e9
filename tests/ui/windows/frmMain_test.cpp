#include "ui/windows/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QTreeView>
#include <QWindow>
#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"
#include "ui/board/board_layout.h"
#include "ui/message_view/message_view_widget.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Message(const std::string& text) { return text + '\0'; }

/// What is read on a control or beside it, without the mark of its access key.
QString CaptionOf(const QWidget& control) {
  QString caption = control.property("text").toString() + control.property("title").toString();
  if (const auto* list = qobject_cast<const QTreeView*>(&control)) {
    for (int column = 0; column < list->model()->columnCount(); ++column) {
      caption += list->model()->headerData(column, Qt::Horizontal).toString() + QLatin1Char('|');
    }
  } else if (const auto* tabs = qobject_cast<const QTabBar*>(&control)) {
    for (int tab = 0; tab < tabs->count(); ++tab) {
      caption += tabs->tabText(tab) + QLatin1Char('|');
    }
  }
  for (const QLabel* label : control.window()->findChildren<QLabel*>()) {
    caption += label->buddy() == &control ? label->text() : QString();
  }
  return caption.remove(QLatin1Char('&'));
}

class frmMainTest : public testing::Test {
 protected:
  frmMainTest() {
    EXPECT_TRUE(client.StartUp());
    client.splash.window().Unload();
    client.main_window.Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  template <typename Control>
  Control& Get(const char* name) {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return *control;
  }
  QComboBox& ChatBox() { return Get<QComboBox>("cboSend"); }
  QLineEdit& ChatLine() { return *ChatBox().lineEdit(); }
  void LogIn() {
    platform.socket.Accept();
    Receive("[con]Ann\0011");
    platform.socket.TakeSent();
  }
  std::array<WindowLife*, 4> SideWindows() {
    return {&client.login_dialog.window(), &client.statistics.window(), &client.news.window(),
            &client.tournament.window()};
  }
  void Receive(const std::string& message) { platform.socket.Receive(Message(message)); }

  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};
  frmMain window{client};
};

TEST_F(frmMainTest, TitleAndConnectItemFollowTheConnection) {
  QAction& connect = Get<QAction>("mnuDisCon");
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Disconnected"));
  EXPECT_EQ(connect.text(), QStringLiteral("&Connect"));
  platform.socket.Accept();
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Connected"));
  EXPECT_EQ(connect.text(), QStringLiteral("&Connect"));
  Receive("[con]Ann\0011");
  EXPECT_EQ(connect.text(), QStringLiteral("&Disconnect"));
  EXPECT_EQ(Get<QAction>("mnuExit").text(), QStringLiteral("&Exit"));
  QTest::keyClick(&window, Qt::Key_F1);
  EXPECT_THAT(platform.socket.TakeSent(), testing::Contains(Message("[dis]")));
}

TEST_F(frmMainTest, EnterAndTheButtonSendWhatWasTypedUpToTheLimit) {
  LogIn();
  EXPECT_EQ(QApplication::focusWidget(), &ChatBox());
  QTest::keyClicks(&ChatBox(), QStringLiteral("hello"));
  QTest::keyClick(&ChatBox(), Qt::Key_Return);
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[ctc]c hello")));
  EXPECT_EQ(ChatLine().text(), QString());

  QPushButton& send = Get<QPushButton>("btnSend");
  QTest::keyClicks(&ChatBox(), QString(251, QLatin1Char('x')));
  EXPECT_FALSE(send.isEnabled());
  QTest::keyClick(&ChatBox(), Qt::Key_Return);
  QTest::mouseClick(&send, Qt::LeftButton);
  EXPECT_THAT(platform.socket.TakeSent(), IsEmpty());
  QTest::keyClick(&ChatBox(), Qt::Key_Backspace);
  QTest::mouseClick(&send, Qt::LeftButton);
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[ctc]c " + std::string(250, 'x'))));
}

TEST_F(frmMainTest, CheckMarksFollowTheOptions) {
  QAction& action = Get<QAction>("mnuFilter");
  for (const bool on : {true, false, true}) {
    EXPECT_EQ(action.isChecked(), on);
    EXPECT_EQ(client.options.mnuFilter, on);
    action.trigger();
  }
}

TEST_F(frmMainTest, TheBoxMenuSendsItsRequest) {
  LogIn();
  auto& board = Get<QWidget>("ResearchBoard");
  QTest::mouseClick(&board, Qt::RightButton, {}, board_layout::BoxRect(6).center());
  EXPECT_TRUE(Get<QMenu>("mPopMenu").isVisible());
  Get<QAction>("mResearch").trigger();
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[upg]2\0013\001")));
  Get<QMenu>("mPopMenu").close();
}

TEST_F(frmMainTest, ThePlayerMenuActsOnTheEntryItWasOpenedFor) {
  LogIn();
  Receive("[onl]Bob\0011\0011\0010\002Cid\0011\0011\0010");
  auto& list = Get<QTreeView>("lstOnline");
  const QPoint cid = list.visualRect(list.model()->index(1, 0)).center();
  QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier, cid);
  EXPECT_TRUE(Get<QMenu>("mnuWarMenu").isVisible());
  Receive("[onl]Dan\0011\0011\0010");
  Get<QAction>("mnuAttack").trigger();
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[att]Cid")));
  Get<QMenu>("mnuWarMenu").close();
}

TEST_F(frmMainTest, ResizingMovesNothing) {
  const auto places = [&] {
    std::vector<QRect> rects;
    for (const char* name : {"rbMessages", "cboSend", "btnSend", "lstOnline"}) {
      const QWidget& control = Get<QWidget>(name);
      rects.emplace_back(control.mapTo(&window, QPoint(0, 0)), control.size());
    }
    return rects;
  };
  const std::vector<QRect> before = places();
  window.resize(700, 400);
  for (const char* name : {"btnSend", "lstOnline", "ResearchBoard"}) {
    Get<QWidget>(name).setFocus();
    EXPECT_EQ(places(), before) << name;
  }
}

TEST_F(frmMainTest, OnASmallScreenWhatHasTheKeyboardScrollsIntoSight) {
  QScreen* const small = QApplication::screens().back();
  window.windowHandle()->setScreen(small);
  window.move(small->geometry().topLeft());

  auto& area = Get<QScrollArea>("fittingArea");
  auto& board = Get<QWidget>("ResearchBoard");
  const auto bars = [&] {
    return std::pair(area.horizontalScrollBar()->isVisible(),
                     area.verticalScrollBar()->isVisible());
  };
  window.resize(1200, 700);
  EXPECT_EQ(bars(), std::pair(false, false));
  EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
  window.resize(700, 400);
  EXPECT_EQ(bars(), std::pair(true, true));
  for (const char* name : {"btnSend", "lstOnline", "ResearchBoard"}) {
    Get<QWidget>(name).setFocus();
    const QRect place =
        &Get<QWidget>(name) == &board ? board_layout::BoxRect(0) : Get<QWidget>(name).rect();
    EXPECT_EQ(Get<QWidget>(name).visibleRegion().intersected(place), QRegion(place)) << name;
  }
  for (int i = 0; i < kTopLevel; ++i) {
    QTest::keyClick(&board, Qt::Key_Right);
  }
  const QRect goal = board_layout::BoxRect(board_layout::kGoldenIndex);
  EXPECT_EQ(board.visibleRegion().intersected(goal), QRegion(goal));
}

TEST_F(frmMainTest, FindIsReachedFromTheChatLineAndByTab) {
  QTest::keyClick(&ChatBox(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  Get<QWidget>("rbMessages").setFocus();
  for (const char* next : {"txtFind", "btnOlder", "btnNewer", "btnCloseFind", "cboSend"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QLatin1String(next));
  }
  Get<QWidget>("txtFind").setFocus();
  LogIn();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[jon]")));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &ChatBox());
}

TEST_F(frmMainTest, EveryControlIsCaptionedAndReadAloud) {
  platform.socket.Accept();
  Receive("[con]Ann\00190");
  for (WindowLife* life : SideWindows()) {
    life->Show();
  }
  const std::pair<QWidget&, std::vector<const char*>> cases[] = {
      {window, {"lstOnline: Name|Level|", "btnSend: Transmit"}},
      {Get<QWidget>("frmLogin"),
       {"frmValues: Connection Values:", "cboServer: Server:", "cboUsernames: Username:",
        "txtPassword: Password:", "btnLogin: Login", "chkSave: Save Password", "btnClear: Clear",
        "btnCancel: Cancel"}},
      {Get<QWidget>("frmNews"), {"btnClose: Close"}},
      {Get<QWidget>("frmStats"),
       {"btnLoad: Search User", "frmUserData: Statistics for 'none'", "rbScore: Total Score",
        "txtAlliance: Alliance", "txtID: Identification #", "txtWins: Game Wins",
        "txtAllianceWins: Alliance Wins", "txtPlayed: Games Played", "txtResearch: Total Research",
        "txtLost: Research Lost", "txtDestroy: Enemy Research Destroyed", "txtBlocks: Total Blocks",
        "txtScrew: Alliance Screw-Overs", "frmAward: Awards for 'none'", "lstAwards: Awards|"}},
      {Get<QWidget>("frmTournament"),
       {"TStrip: Info|Teams|Admin|", "fInfo: Information", "iEntryFee: Entry Fee",
        "txtPurse: Current Purse", "iMaxTeams: Current Teams", "iMaxPlayers: Current Players",
        "cmbTeam: Team Name", "txtPassword: Team Password", "Command4: Create/Join"}},
      {Get<QWidget>("frmTournament"),
       {"fTeams: Teams", "lstTeams: Team Information|", "KickPlayer: Kick Player",
        "btnDisband: Disband Team", "fAdmin: Admin", "EntryFee: Entry Fee", "MaxTeams: Max Teams",
        "MaxPlayers: Max Players", "Command1: Start Tournament", "Command2: Set Tournament Game",
        "Command3: End Tournament"}},
  };
  for (const auto& [place, captions] : cases) {
    for (const char* text : captions) {
      const QString line = QLatin1String(text);
      const QString caption = line.section(QStringLiteral(": "), 1);
      const auto* control = place.findChild<QWidget*>(line.section(QLatin1Char(':'), 0, 0));
      ASSERT_NE(control, nullptr) << text;
      EXPECT_EQ(CaptionOf(*control), caption) << text;
      EXPECT_TRUE(caption.endsWith(QLatin1Char('|')) || control->accessibleName() == caption)
          << text;
    }
  }
}

TEST_F(frmMainTest, SideWindowsAreItsOwnAndComeForwardWhenShownAgain) {
  window.move(window.pos() + QPoint(90, 70));
  const auto comes_forward = [](const QWidget* which) {
    return QTest::qWaitFor([which] { return QApplication::activeWindow() == which; });
  };
  qsizetype open = 0;
  for (WindowLife* life : SideWindows()) {
    life->Show();
    const QList<QDialog*> dialogs = window.findChildren<QDialog*>();
    ASSERT_EQ(dialogs.size(), ++open);
    const std::string name = dialogs.back()->objectName().toStdString();
    EXPECT_EQ(dialogs.back()->windowHandle()->transientParent(), window.windowHandle()) << name;
    EXPECT_FALSE(dialogs.back()->isModal()) << name;
    window.activateWindow();
    EXPECT_TRUE(comes_forward(&window)) << name;
    life->Show();
    EXPECT_TRUE(comes_forward(dialogs.back())) << name;
    EXPECT_EQ(window.findChildren<QDialog*>(), dialogs) << name;
  }
  const auto& tournament = Get<QDialog>("frmTournament");
  EXPECT_EQ(tournament.windowType(), Qt::Tool);
  EXPECT_FALSE(tournament.windowFlags() & Qt::WindowMinMaxButtonsHint);
  EXPECT_EQ(tournament.minimumSize(), tournament.maximumSize());
  const QPoint off = tournament.frameGeometry().center() - window.frameGeometry().center();
  EXPECT_LE(off.manhattanLength(), 8) << "but for the frame of a window";
}

TEST_F(frmMainTest, AWindowReopenedAtOnceHearsOfChanges) {
  client.news.window().Show();
  client.news.window().Unload();
  client.news.window().Show();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Receive("[nws]fresh");
  const MessageView& news = Get<MessageViewWidget>("rbNews").model();
  EXPECT_EQ(news.text().Bytes(0, news.size()), "fresh");
}

}  // namespace
}  // namespace korvanta

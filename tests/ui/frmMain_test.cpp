#include "ui/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Message(const std::string& text) { return text + '\0'; }

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
  void Receive(const std::string& message) { platform.socket.Receive(Message(message)); }

  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};
  frmMain window{client};
};

TEST_F(frmMainTest, TitleAndConnectItemFollowTheConnection) {
  QAction& connect = Get<QAction>("mnuDisCon");
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Disconnected"));
  EXPECT_EQ(connect.text(), QStringLiteral("Connect"));
  platform.socket.Accept();
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Korvanta - v1.6 - Connected"));
  EXPECT_EQ(connect.text(), QStringLiteral("Connect"));
  Receive("[con]Ann\0011");
  EXPECT_EQ(connect.text(), QStringLiteral("Disconnect"));
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
  EXPECT_TRUE(send.isEnabled());
  QTest::mouseClick(&send, Qt::LeftButton);
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[ctc]c " + std::string(250, 'x'))));
}

TEST_F(frmMainTest, ChecksShowTheOptionsAndASecondClickTakesThemBack) {
  for (const auto& [name, option] :
       {std::pair{"mAuto", &Options::mAuto}, std::pair{"mnuAutoChat", &Options::mnuAutoChat},
        std::pair{"mSounds", &Options::mSounds},
        std::pair{"mnuScrollLock", &Options::mnuScrollLock},
        std::pair{"mnuFilter", &Options::mnuFilter}, std::pair{"mnuLogins", &Options::mnuLogins}}) {
    QAction& action = Get<QAction>(name);
    const bool before = client.options.*option;
    EXPECT_EQ(action.isChecked(), before) << name;
    action.trigger();
    EXPECT_EQ(client.options.*option, !before) << name;
    EXPECT_EQ(action.isChecked(), !before) << name;
    action.trigger();
    EXPECT_EQ(action.isChecked(), before) << name;
  }
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
  std::vector<QRect> before;
  const QList<QWidget*> controls = {&Get<QWidget>("rbMessages"), &Get<QWidget>("cboSend"),
                                    &Get<QWidget>("btnSend"), &Get<QWidget>("lstOnline")};
  const auto places = [&] {
    std::vector<QRect> rects;
    for (const QWidget* control : controls) {
      rects.emplace_back(control->mapTo(&window, QPoint(0, 0)), control->size());
    }
    return rects;
  };
  before = places();
  for (const QSize size : {QSize(1400, 900), QSize(700, 400)}) {
    window.resize(size);
    QApplication::processEvents();
    EXPECT_EQ(places(), before);
  }
}

TEST_F(frmMainTest, AWindowReopenedAtOnceHearsOfChanges) {
  client.news.window().Show();
  client.news.window().Unload();
  client.news.window().Show();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Receive("[nws]fresh");
  EXPECT_EQ(Get<QPlainTextEdit>("rbNews").toPlainText(), QStringLiteral("fresh"));
}

TEST_F(frmMainTest, FitsASmallScreenWithItsPanels) {
  EXPECT_LE(window.width(), 1120);
  EXPECT_LE(window.height(), 690);
  for (const char* name : {"cboSend", "lstOnline"}) {
    const QWidget& control = Get<QWidget>(name);
    const QPoint corner = control.mapTo(&window, control.rect().bottomRight());
    EXPECT_TRUE(window.rect().contains(corner)) << name;
  }
}

TEST_F(frmMainTest, ClosingTheWindowRunsTheClosingSteps) {
  LogIn();
  client.news.window().Show();
  Get<QAction>("mnuExit").trigger();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(client.news.window().state(), WindowLife::State::Absent);
  EXPECT_EQ(platform.settings.commits, 1);
}

}  // namespace
}  // namespace korvanta

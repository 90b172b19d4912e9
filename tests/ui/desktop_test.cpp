/// Timers, message boxes, web addresses and sounds of the desktop.
#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <gmock/gmock.h>

#include "ui/desktop/desktop_web_opener.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/desktop/qt_sound_player.h"
#include "ui/desktop/qt_timers.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;

TEST(QtTimers, TickPeriodicallyAndStartAWholePeriodWhenEnabled) {
  QtTimerFactory timers;
  const auto timer = timers.MakeTimer(100ms);
  EXPECT_FALSE(timer->IsEnabled());
  QElapsedTimer time;
  std::vector<qint64> ticks;
  timer->on_tick = [&] {
    ticks.push_back(time.elapsed());
    timer->SetEnabled(ticks.size() < 3);
  };
  timer->SetEnabled(true);
  QTest::qWait(60);
  time.start();
  timer->SetEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->IsEnabled(); }));
  ASSERT_EQ(ticks.size(), 3U);
  EXPECT_GE(ticks[0], 99);
  EXPECT_GE(ticks[2], 299);
}

/// Lets `act` look at the next message box, from inside its event loop.
template <typename Act>
void WithNextBox(Act act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    act(*box);
    if (box->isVisible()) {
      QTest::keyClick(box, Qt::Key_Escape);
    }
  });
}

TEST(QtMessageBoxTest, ShowsItsIconAndOneButton) {
  const struct {
    MessageIcon icon;
    QMessageBox::Icon shown;
  } icons[] = {{MessageIcon::None, QMessageBox::NoIcon},
               {MessageIcon::Exclamation, QMessageBox::Warning},
               {MessageIcon::Critical, QMessageBox::Critical}};
  for (const auto& c : icons) {
    int shown_count = 0;
    WithNextBox([&](QMessageBox& box) {
      ++shown_count;
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Korvanta"));
      EXPECT_EQ(box.icon(), c.shown);
      EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
      EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    });
    QtMessageBox().Show("Mind this.", "Korvanta", c.icon);
    EXPECT_EQ(shown_count, 1);
  }
}

TEST(QtMessageBoxTest, OnlyYesIsYes) {
  const struct {
    void (*answer)(QMessageBox& box);
    bool expected;
  } cases[] = {
      {[](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }, true},
      {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, true},
      {[](QMessageBox& box) { box.button(QMessageBox::No)->click(); }, false},
      {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, false},
      {[](QMessageBox& box) { box.close(); }, false},
  };
  for (const auto& c : cases) {
    WithNextBox([&](QMessageBox& box) { c.answer(box); });
    EXPECT_EQ(QtMessageBox().Ask("Really?", "Korvanta"), c.expected);
  }
}

TEST(DesktopWebOpenerTest, OnlyWebAddressesAreHandedToTheDesktopAndFailuresHaveTheirCodes) {
  const QString page = QStringLiteral("http://korvanta.example/");
  EXPECT_EQ(DesktopWebOpener::OpenCode(page, true, true), 33);
  EXPECT_EQ(DesktopWebOpener::OpenCode(page, false, false), 31);
  EXPECT_EQ(DesktopWebOpener::OpenCode(page, false, true), 5);
  EXPECT_EQ(DesktopWebOpener::OpenCode(QStringLiteral("index.html"), false, true), 2);
  // A signal that takes an address stands in for the desktop.
  QTextBrowser desktop;
  QStringList opened;
  QObject::connect(&desktop, &QTextBrowser::anchorClicked, &desktop,
                   [&](const QUrl& url) { opened += url.toString(); });
  const char* const schemes[] = {"http", "https", "file", "javascript", "data", "smb", "ftp", ""};
  for (const char* scheme : schemes) {
    QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &desktop, "anchorClicked");
  }
  DesktopWebOpener opener;
  EXPECT_EQ(opener.Open("http://korvanta.example/Korvanta/"), 33);
  EXPECT_EQ(opener.Open("HTTPS://korvanta.example"), 33);
  for (const char* refused :
       {"file:///etc/passwd", "javascript:alert(1)", "http:", "http:///etc/passwd", "http://a b/",
        "/etc/passwd", "", "http://korvanta.example:99999/", "data:text/html,x", "smb://host/share",
        " http://korvanta.example/", "http://korvanta.example/\nfile:///etc/passwd",
        "http://korvanta.example/\x01", "ftp://korvanta.example/", "http:korvanta.example"}) {
    EXPECT_LE(opener.Open(refused), 32) << refused;
  }
  EXPECT_EQ(opened, QStringList({QStringLiteral("http://korvanta.example/Korvanta/"),
                                 QStringLiteral("https://korvanta.example")}));
  for (const char* scheme : schemes) {
    QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
  }
}

TEST(QtSoundPlayerTest, WhateverIsMissingIsSilenceAndManyDoNotPileUp) {
  QtSoundPlayer player(QCoreApplication::applicationDirPath());
  for (int i = 0; i < 50; ++i) {
    for (const char* name : {"sounds/tick.wav", "sounds/absent.wav", "sounds", "deployment.ini"}) {
      player.Play(name);
      EXPECT_LE(player.PlayingCount(), QtSoundPlayer::kMostTogether);
    }
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return player.PlayingCount() == 0; }))
      << "sounds are dropped when they end";
}

}  // namespace
}  // namespace korvanta

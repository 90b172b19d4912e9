/// Timers, message boxes, web addresses and sounds of the desktop.
#include <QApplication>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <gmock/gmock.h>

#include "ui/desktop/desktop_web_opener.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/desktop/qt_sound_player.h"
#include "ui/desktop/qt_timers.h"
#include "ui/text.h"

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
  QElapsedTimer since_made;
  since_made.start();
  EXPECT_TRUE(QTest::qWaitFor([&] { return since_made.elapsed() >= 60; }));
  time.start();
  timer->SetEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->IsEnabled(); }));
  ASSERT_EQ(ticks.size(), 3U);
  EXPECT_GE(ticks[0], 99);
  EXPECT_GE(ticks[2], 299);
  EXPECT_LT(ticks[2], 600);
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

TEST(QtMessageBoxTest, ShowsPlainTextWithItsIconAndOneButton) {
  const std::string text = "<b>\xc4hnlich</b> &amp; <img src='/etc/passwd'>";
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
      EXPECT_EQ(box.text(), ToQString(text));
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Korvanta"));
      EXPECT_EQ(box.icon(), c.shown);
      EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
      EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    });
    QtMessageBox().Show(text, "Korvanta", c.icon);
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

TEST(QtMessageBoxTest, LongTextsKeepTheWindowOnTheScreen) {
  std::string many_long_words;
  for (int i = 0; i < 1000; ++i) {
    many_long_words += std::string(21, 'm') + ' ';
  }
  const std::string texts[] = {
      std::string(1 << 20, 'W'),
      std::string(1 << 20, '\n'),
      std::string(1 << 20, '\t'),
      many_long_words,
      std::string("W\n") + std::string(5000, 'W'),
  };
  for (const std::string& text : texts) {
    WithNextBox([](QMessageBox& box) {
      const QSize screen = box.screen()->availableSize();
      EXPECT_LE(box.width(), screen.width());
      EXPECT_LE(box.height(), screen.height());
      EXPECT_TRUE(box.text().endsWith(QChar(0x2026)));
    });
    QtMessageBox().Show(text, "Korvanta", MessageIcon::Exclamation);
  }
}

TEST(DesktopWebOpenerTest, CodesTellWhatWentWrong) {
  const struct {
    const char* address;
    bool was_opened, has_browser;
    int code;
  } cases[] = {
      {"http://korvanta.example/Korvanta/", true, true, 33},
      {"http://korvanta.example/Korvanta/", false, false, 31},
      {"https://korvanta.example/", false, true, 5},
      {"ftp://korvanta.example/", false, true, 5},
      {"Korvanta/index.html", false, true, 2},
      {"", false, false, 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(
        DesktopWebOpener::OpenCode(QString::fromLatin1(c.address), c.was_opened, c.has_browser),
        c.code)
        << c.address;
  }
}

TEST(DesktopWebOpenerTest, OnlyWebAddressesAreHandedToTheDesktop) {
  // A signal that takes an address stands in for the desktop.
  QTextBrowser desktop;
  QStringList opened;
  QObject::connect(&desktop, &QTextBrowser::anchorClicked, &desktop,
                   [&](const QUrl& url) { opened += url.toString(); });
  const char* const schemes[] = {"http", "https", "file", "ftp", "javascript", "korvanta", ""};
  for (const char* scheme : schemes) {
    QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &desktop, "anchorClicked");
  }
  DesktopWebOpener opener;
  EXPECT_EQ(opener.Open("http://korvanta.example/Korvanta/"), 33);
  EXPECT_EQ(opener.Open("HTTPS://korvanta.example"), 33);
  for (const char* refused :
       {"file:///etc/passwd", "ftp://korvanta.example/", "javascript:alert(1)", "korvanta:x",
        "http:", "http:///etc/passwd", "https://", "http://a b/", "/etc/passwd", "xterm", "",
        "http://korvanta.example:99999/", " http://korvanta.example/", "http://%zz/"}) {
    EXPECT_LE(opener.Open(refused), 32) << refused;
  }
  EXPECT_EQ(opened, QStringList({QStringLiteral("http://korvanta.example/Korvanta/"),
                                 QStringLiteral("https://korvanta.example")}));
  for (const char* scheme : schemes) {
    QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
  }
}

/// A tenth of a second of silence.
QByteArray Wave() {
  constexpr quint32 kRate = 8000;
  constexpr quint32 kBytes = kRate / 10 * 2;
  QByteArray wave;
  const auto number = [&](quint32 value, int size) {
    for (int i = 0; i < size; ++i) {
      wave += static_cast<char>(value >> (8 * i) & 0xffU);
    }
  };
  wave += "RIFF";
  number(36 + kBytes, 4);
  wave += "WAVEfmt ";
  number(16, 4);
  number(1, 2);
  number(1, 2);
  number(kRate, 4);
  number(kRate * 2, 4);
  number(2, 2);
  number(16, 2);
  wave += "data";
  number(kBytes, 4);
  return wave + QByteArray(kBytes, '\0');
}

TEST(QtSoundPlayerTest, WhateverIsMissingIsSilenceAndManyDoNotPileUp) {
  QTemporaryDir folder;
  QDir(folder.path()).mkdir(QStringLiteral("sounds"));
  const std::pair<const char*, QByteArray> files[] = {{"sounds/tick.wav", Wave()},
                                                      {"sounds/broken.wav", "no wave at all"},
                                                      {"sounds/empty.wav", ""}};
  for (const auto& [name, bytes] : files) {
    QFile file(folder.filePath(QString::fromLatin1(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  QtSoundPlayer player(folder.path());
  for (int i = 0; i < 50; ++i) {
    for (const char* name : {"sounds/tick.wav", "sounds/broken.wav", "sounds/empty.wav",
                             "sounds/absent.wav", "sounds"}) {
      player.Play(name);
      EXPECT_LE(player.PlayingCount(), QtSoundPlayer::kMostTogether);
    }
    QCoreApplication::processEvents();
  }
  EXPECT_TRUE(QTest::qWaitFor([&] { return player.PlayingCount() == 0; }))
      << "sounds are dropped when they end";
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace korvanta

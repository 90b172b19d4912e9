/// Timers, message boxes, web addresses and the lock of the running copy.
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
#include <csignal>
#include <gmock/gmock.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

#include "ui/desktop/desktop_web_opener.h"
#include "ui/desktop/instance_lock.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/desktop/qt_timers.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;

TEST(QtTimers, TickPeriodicallyWhileEnabled) {
  const auto timer = QtTimerFactory().MakeTimer(100ms);
  QElapsedTimer time;
  int ticks = 0;
  timer->on_tick = [&] { timer->SetEnabled(++ticks < 3); };
  time.start();
  timer->SetEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !timer->IsEnabled(); }));
  EXPECT_EQ(ticks, 3);
  EXPECT_GE(time.elapsed(), 299);
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

TEST(QtMessageBoxTest, ShowsItsTextItsIconAndOneButtonOnTheScreen) {
  const std::tuple<QString, MessageIcon, QMessageBox::Icon> cases[] = {
      // It has room, so the long word gets no places to break, which would be copied along.
      {QStringLiteral("/home/") + QString(94, u'x'), MessageIcon::None, QMessageBox::NoIcon},
      {QStringLiteral("<b>%1</b>\n&amp; &"), MessageIcon::Exclamation, QMessageBox::Warning},
      {QString(1'000'000, u'W'), MessageIcon::Critical, QMessageBox::Critical},
      {QString(1'000, u'\n'), MessageIcon::None, QMessageBox::NoIcon}};
  for (const auto& [text, icon, shown_icon] : cases) {
    WithNextBox([&, text = text, shown_icon = shown_icon](QMessageBox& box) {
      EXPECT_TRUE(box.text() == text || (text.size() >= 1'000 && box.text().contains(u'\u2026')));
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Korvanta"));
      EXPECT_EQ(box.icon(), shown_icon);
      EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
      EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
      EXPECT_TRUE(box.screen()->geometry().contains(QRect({}, box.size()))) << box.height();
      const QWidget& button = *box.button(QMessageBox::Ok);
      EXPECT_TRUE(box.rect().contains({button.mapTo(&box, QPoint()), button.size()}));
    });
    QtMessageBox().Show(text.toStdString(), "Korvanta", icon);
  }
}

TEST(QtMessageBoxTest, OnlyYesIsYes) {
  const std::pair<void (*)(QMessageBox&), bool> cases[] = {
      {[](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }, true},
      {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, true},
      {[](QMessageBox& box) { box.button(QMessageBox::No)->click(); }, false},
      {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, false}};
  for (const auto& [answer, expected] : cases) {
    WithNextBox(answer);
    EXPECT_EQ(QtMessageBox().Ask("Really?", "Korvanta"), expected);
  }
}

TEST(QtMessageBoxTest, StandsOverTheMainWindowWhileAnotherProgramIsActive) {
  QWidget main_window;
  main_window.setAttribute(Qt::WA_ShowWithoutActivating);
  main_window.setGeometry(40, 40, 300, 200);
  main_window.show();
  QDialog dialog(&main_window);
  dialog.setAttribute(Qt::WA_ShowWithoutActivating);
  dialog.show();
  ASSERT_EQ(QApplication::activeWindow(), nullptr);
  WithNextBox([&](QMessageBox& box) { EXPECT_EQ(box.parentWidget(), &main_window); });
  QtMessageBox().Show("It failed.", "Korvanta", MessageIcon::None);
}

/// Programs are looked for in a folder of the test's, then where they were before.
class DesktopWebOpenerTest : public testing::Test {
 protected:
  /// An xdg-open that notes its arguments and fares as its address ends: it exits with that status,
  /// dies of a signal, or becomes a browser that notes its process.
  DesktopWebOpenerTest() {
    qputenv("PATH", QFile::encodeName(folder_.path()) + ':' + path_);
    QFile script(folder_.filePath(QStringLiteral("xdg-open")));
    EXPECT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(R"(#!/bin/sh
printf "%s " "$*" >> "${0%/*}/opened"
case ${1##*/} in
  killed) kill -9 $$ ;;
  browser) echo $$ > "${0%/*}/browser"; exec sleep 60 ;;
esac
exit ${1##*/}
)");
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  }
  ~DesktopWebOpenerTest() override { qputenv("PATH", path_); }

  std::string Read(const char* name) const {
    QFile file(folder_.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
  }

  QTemporaryDir folder_;
  const QByteArray path_ = qgetenv("PATH");
  DesktopWebOpener opener_;
};

TEST_F(DesktopWebOpenerTest, HandsWebAddressesAloneToTheDesktopAndReportsHowEachFared) {
  const std::pair<int, std::vector<const char*>> cases[] = {
      {33, {"http://korvanta.example/0"}},
      {2, {"http://korvanta.example/2", "index.html", "", "/etc/passwd"}},
      {31, {"http://korvanta.example/3"}},
      {5,
       {"http://korvanta.example/killed", "HTTPS://korvanta.example/a?b='c$(d)&e=%20;/1",
        "file:///etc/passwd", "javascript:alert(1)", "http:", "http:///etc/passwd",
        "http:korvanta.example", "http://korvanta.example:99999/", "http://a b/",
        " http://korvanta.example/", "http://korvanta.example/\nfile:///etc/passwd"}}};
  for (const auto& [expected, addresses] : cases) {
    for (const char* address : addresses) {
      std::vector<int> codes;
      opener_.Open(address, [&](int code) { codes.push_back(code); });
      EXPECT_TRUE(QTest::qWaitFor([&] { return !codes.empty(); })) << address;
      EXPECT_THAT(codes, testing::ElementsAre(expected)) << address;
    }
  }
  EXPECT_EQ(Read("opened"),
            "http://korvanta.example/0 http://korvanta.example/2 http://korvanta.example/3 "
            "http://korvanta.example/killed https://korvanta.example/a?b='c$(d)&e=%20;/1 ");
}

TEST_F(DesktopWebOpenerTest, ABrowserOutlivesTheOpenerAndIsNotWaitedFor) {
  auto opener = std::make_unique<DesktopWebOpener>();
  opener->Open("http://korvanta.example/browser", [](int /*code*/) { FAIL(); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return !Read("browser").empty(); }));
  const pid_t browser = std::stoi(Read("browser"));
  EXPECT_EQ(::getsid(browser), browser) << "what ends the session of this program ends that too";
  opener.reset();
  ::kill(browser, SIGTERM);
  int status = 0;
  ASSERT_EQ(::waitpid(browser, &status, 0), browser);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM) << "it had ended before";
  QTest::qWait(0);
}

TEST_F(DesktopWebOpenerTest, WithoutXdgOpenTheToolkitIsAsked) {
  qputenv("PATH", "/proc");
  std::vector<int> codes;
  const auto note = [&](int code) { codes.push_back(code); };
  opener_.Open("http://korvanta.example/", note);
  QTextBrowser desktop;  // has what takes an address
  QDesktopServices::setUrlHandler(QStringLiteral("http"), &desktop, "anchorClicked");
  opener_.Open("http://korvanta.example/", note);
  QDesktopServices::unsetUrlHandler(QStringLiteral("http"));
  EXPECT_THAT(codes, testing::ElementsAre(31, 33));
}

TEST(InstanceLock, KeepsASecondCopyOutWhileTheFirstRunsAndNobodyElse) {
  const auto can_start = [](const char* program = "Korvanta") {
    return !InstanceLock(QString::fromLatin1(program)).IsAnotherRunning();
  };
  const QTemporaryDir folder;
  const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
  const QByteArray temporary = qgetenv("TMPDIR");
  qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
  {
    InstanceLock first(QStringLiteral("Korvanta"));
    EXPECT_FALSE(first.IsAnotherRunning());
    EXPECT_FALSE(can_start() || can_start()) << "asking must not take the lock away";
    EXPECT_TRUE(can_start("Another name"));
  }
  EXPECT_TRUE(can_start());
  QFile abandoned(folder.filePath(QStringLiteral("Korvanta-Korvanta.lock")));
  for (const QByteArray& left : {QByteArray::number(QCoreApplication::applicationPid()) + "\n\n\n",
                                 QByteArray("1\nsystemd\nelsewhere\n"), QByteArray()}) {
    ASSERT_TRUE(abandoned.open(QIODevice::WriteOnly));
    abandoned.write(left);
    abandoned.close();
    EXPECT_TRUE(can_start()) << "left by a process whose number is in use: " << left.constData();
  }

  qputenv("XDG_RUNTIME_DIR", "/proc/nowhere");
  qputenv("TMPDIR", "/proc/nowhere");
  EXPECT_TRUE(can_start()) << "without a place for the file the player plays";
  qputenv("XDG_RUNTIME_DIR", runtime);
  temporary.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporary);
}

}  // namespace
}  // namespace korvanta

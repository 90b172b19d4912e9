/// The fixture of the tests of windows: a client on a fake platform with its main window, of which
/// the others come and go as in the program.
#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/fakes/fake_platform.h"
#include "ui/message_view/message_view_widget.h"
#include "ui/windows/frmMain.h"

namespace korvanta {

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    EXPECT_TRUE(client.StartUp());
    client.splash.window().Unload();
    client.main_window.Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  static std::string Message(const std::string& text) { return text + '\0'; }
  void Receive(const std::string& text) { platform.socket.Receive(Message(text)); }
  std::vector<std::string> TakeSent() { return platform.socket.TakeSent(); }
  /// As Ann; a `user_id` of 90 or more is an administrator's.
  void LogIn(const std::string& user_id = "1") {
    platform.socket.Accept();
    Receive("[con]Ann\001" + user_id);
    TakeSent();
  }

  template <typename Control = QWidget>
  Control& Get(const std::string& name) const {
    auto* control = window.findChild<Control*>(QString::fromStdString(name));
    if (control == nullptr) {
      throw std::logic_error("no control " + name);
    }
    return *control;
  }
  /// The whole text of a message view.
  std::string TextOf(const std::string& view) const {
    const MessageView& model = Get<MessageViewWidget>(view).model();
    return model.text().Bytes(0, model.size());
  }

  static void DeleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static bool ComesForward(const QWidget& which) {
    return QTest::qWaitFor([&which] { return QApplication::activeWindow() == &which; });
  }
  /// Shows one of the side windows and makes it the active one.
  QWidget& Open(const std::string& name) {
    DeleteClosedWindows();  // whose controls would be found
    side_windows.at(name)->Show();
    auto& opened = Get(name);
    opened.activateWindow();
    EXPECT_TRUE(ComesForward(opened)) << name;
    return opened;
  }
  bool IsOpen(const std::string& name) const {
    return side_windows.at(name)->state() != WindowLife::State::Absent;
  }

  void Click(const std::string& name) { QTest::mouseClick(&Get(name), Qt::LeftButton); }
  static void TurnWheelUpAndDown(QWidget& control) {
    const QPointF middle = control.rect().center();
    for (const int angle : {120, -120}) {
      QWheelEvent turn(middle, control.mapToGlobal(middle), {}, {0, angle}, {}, {},
                       Qt::NoScrollPhase, false);
      QApplication::sendEvent(&control, &turn);
    }
  }
  static void Type(QWidget& box, const char* text) {
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, QLatin1String(text));
  }

  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};
  frmMain window{client};
  const std::map<std::string, WindowLife*> side_windows{
      {"frmLogin", &client.login_dialog.window()},
      {"frmNews", &client.news.window()},
      {"frmStats", &client.statistics.window()},
      {"frmTournament", &client.tournament.window()}};
};

/// All windows, of an administrator.
class AllWindowsTest : public MainWindowTest {
 protected:
  AllWindowsTest() {
    LogIn("90");
    for (const auto& [name, life] : side_windows) {
      life->Show();
    }
    QApplication::processEvents();
  }
};

}  // namespace korvanta

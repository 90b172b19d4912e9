/// The windows between a server without scruples and a user without patience.
#include <QApplication>
#include <iterator>
#include <random>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

class HostileEvening : public MainWindowTest {
 protected:
  std::size_t Roll(std::size_t end) { return engine() % end; }

  void Act() {
    const auto& [name, life] = *std::next(side_windows.begin(), static_cast<int>(Roll(4)));
    auto* const dialog = window.findChild<QWidget*>(QString::fromStdString(name));
    switch (Roll(8)) {
      case 0:
      case 1:
        return life->Show();
      case 2:
        return dialog != nullptr ? QTest::keyClick(dialog, Qt::Key_Escape) : void();
      case 3:
        return dialog != nullptr ? static_cast<void>(dialog->close()) : void();
      case 4:
        return Receive(messages[Roll(std::size(messages))]);
      case 5:
        return QTest::mouseClick(&Get("ResearchBoard"), Qt::RightButton, {}, {200, 60});
      case 6:
        QTest::keyClicks(&Get("cboSend"), QStringLiteral("hello"));
        return QTest::keyClick(&Get("cboSend"), Qt::Key_Return);
      default:
        if (QWidget* menu = QApplication::activePopupWidget()) {
          menu->close();
        }
    }
  }

  const std::string messages[7] = {
      "[msg]cht\001Ben: hello\001False",
      "[onl]Ann\0011\0011\0010\002Ben\0014\0012\0011",
      "[bre]Ben\0011\0012\0013\0014\0015\0016\0017\0018\0019\0011\0012\0011\0022",
      "[nws]First line\r\nSecond line",
      "[ttm]Foxes: Ann\002Hares: Ben",
      "[tdd]Foxes\001Hares",
      "[onl]broken",
  };
  std::mt19937 engine{7};
};

TEST_F(HostileEvening, HundredsOfLoginsLaterEverythingWorks) {
  platform.message_box.answers.assign(10'000, true);
  for (int login = 0; login < 300; ++login) {
    LogIn("90");
    for (std::size_t i = Roll(12); i > 0; --i) {
      Act();
      QCoreApplication::processEvents();
      if (Roll(2) == 0) {
        DeleteClosedWindows();
      }
    }
    platform.socket.Hangup();
  }
  LogIn();
  Open("frmNews");
  Receive("[nws]all quiet");
  EXPECT_EQ(TextOf("rbNews"), "all quiet");
  window.close();
  EXPECT_EQ(platform.settings.commits, 1);
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(widget->isVisible()) << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace korvanta

/// The windows between a server without scruples and a user without patience.
#include <QApplication>
#include <iterator>
#include <random>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

TEST_F(MainWindowTest, HundredsOfHostileLoginsLaterEverythingWorks) {
  std::mt19937 engine{7};
  const auto roll = [&engine](std::size_t end) { return engine() % end; };
  const std::string messages[] = {
      "[msg]cht\001Ben: hello\001False",
      "[onl]Ann\0011\0011\0010\002Ben\0014\0012\0011",
      "[bre]Ben\0011\0012\0013\0014\0015\0016\0017\0018\0019\0011\0012\0011\0022",
      "[nws]First line\r\nSecond line",
      "[ttm]Foxes: Ann\002Hares: Ben",
      "[tdd]Foxes\001Hares",
      "[onl]broken",
  };
  const auto act = [&] {
    const auto& [name, life] = *std::next(side_windows.begin(), static_cast<int>(roll(4)));
    auto* const dialog = window.findChild<QWidget*>(QString::fromStdString(name));
    auto* const menu = QApplication::activePopupWidget();
    switch (roll(8)) {
      case 0:
        return dialog != nullptr ? QTest::keyClick(dialog, Qt::Key_Escape) : void();
      case 1:
        return dialog != nullptr ? static_cast<void>(dialog->close()) : void();
      case 2:
        return menu != nullptr ? static_cast<void>(menu->close()) : void();
      case 3:
        return Receive(messages[roll(std::size(messages))]);
      case 4:
        return QTest::mouseClick(&Get("ResearchBoard"), Qt::RightButton, {}, {200, 60});
      case 5:
        return QTest::keyClicks(&Get("cboSend"), QStringLiteral("hello\r"));
      default:
        return life->Show();
    }
  };
  platform.message_box.answers.assign(10'000, true);
  for (int login = 0; login < 300; ++login) {
    LogIn("90");
    for (std::size_t i = roll(12); i > 0; --i) {
      act();
      QCoreApplication::processEvents();
      if (roll(2) == 0) {
        DeleteClosedWindows();
      }
    }
    platform.socket.Hangup();
  }
  LogIn();
  WindowLife& news = client.news.window();
  news.Show();
  news.Unload();
  news.Show();  // while the one before is still to be deleted
  DeleteClosedWindows();
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

/// The windows on a real socket, between a server without scruples and a user without patience.
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>

#include "protocol/wire_format.h"
#include "tests/fakes/fake_platform.h"
#include "ui/desktop/qt_client_socket.h"
#include "ui/kit/text.h"
#include "ui/message_view/message_view_widget.h"
#include "ui/windows/frmMain.h"

namespace korvanta {
namespace {

/// Different in every process that runs at the same time; the port is the game's.
QHostAddress OwnLoopbackAddress() {
  const auto pid = static_cast<int>(QCoreApplication::applicationPid());
  return QHostAddress(QStringLiteral("127.%1.%2.%3")
                          .arg(192 + pid / 62'500 % 60)
                          .arg(pid / 250 % 250)
                          .arg(pid % 250 + 1));
}

/// Of this process.
std::ptrdiff_t OpenSockets() {
  const QFileInfoList files = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System);
  return std::count_if(files.begin(), files.end(), [](const QFileInfo& file) {
    return file.symLinkTarget().contains(QLatin1String("/socket:"));
  });
}

class HostileEvening : public testing::Test {
 protected:
  enum class Mood { Refuse, Close, Reset, Silence, AcceptAndReset, AcceptAndClose, Accept };
  static constexpr int kMoods = 7;

  HostileEvening() {
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
      while (QTcpSocket* peer = server.nextPendingConnection()) {
        QObject::connect(peer, &QTcpSocket::disconnected, peer, &QObject::deleteLater);
        Receive(*peer);
      }
    });
    fake.message_box.answers.assign(10'000, true);
    EXPECT_TRUE(client.StartUp());
    client.splash.window().Unload();
    client.main_window.Show();
  }

  static void DeleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  int Dice(int end) { return static_cast<int>(engine() % static_cast<unsigned>(end)); }

  void ChangeMood(Mood next) {
    mood = next;
    if (mood == Mood::Refuse) {
      server.close();
    } else if (!server.isListening()) {
      ASSERT_TRUE(server.listen(address, kServerPort));
    }
  }

  void Receive(QTcpSocket& peer) {
    const bool accepts = mood >= Mood::AcceptAndReset;
    if (accepts) {
      std::string text("[con]Ann\00190\0", 12);
      for (int i = 0; i < 20; ++i) {
        text += messages[static_cast<std::size_t>(Dice(static_cast<int>(std::size(messages))))];
        text += '\0';
      }
      peer.write(text.data(),
                 static_cast<qint64>(text.size()) - (mood == Mood::Accept ? 0 : Dice(9)));
      peer.flush();
    }
    if (mood == Mood::Close || mood == Mood::AcceptAndClose) {
      peer.disconnectFromHost();
    } else if (mood == Mood::Reset || mood == Mood::AcceptAndReset) {
      peer.abort();  // the login, which nobody reads, makes the system reset the connection
    }
  }

  void LogIn() {
    DeleteClosedWindows();  // whose controls would be found
    client.login_dialog.window().Show();
    client.login_dialog.UserNameTyped("Anna");
    client.login_dialog.PasswordTyped("secret");
    QTest::keyClick(Find("frmLogin"), Qt::Key_Return);
  }

  void Act() {
    QWidget* const dialogs[] = {Find("frmNews"), Find("frmStats"), Find("frmTournament"),
                                Find("frmLogin")};
    QWidget* const dialog = dialogs[Dice(4)];
    switch (Dice(9)) {
      case 0:
        return client.news.window().Show();
      case 1:
        return client.statistics.window().Show();
      case 2:
        return client.tournament.window().Show();
      case 3:
        return dialog != nullptr ? QTest::keyClick(dialog, Qt::Key_Escape) : void();
      case 4:
        return dialog != nullptr ? static_cast<void>(dialog->close()) : void();
      case 5:
        return QTest::keyClick(&window, Qt::Key_F1);
      case 6:
        QTest::mouseClick(Find("ResearchBoard"), Qt::RightButton, {}, {200, 60});
        return;
      case 7:
        QTest::keyClicks(Find("cboSend"), QStringLiteral("hello"));
        return QTest::keyClick(Find("cboSend"), Qt::Key_Return);
      default:
        if (QWidget* menu = QApplication::activePopupWidget()) {
          menu->close();
        }
    }
  }

  QWidget* Find(const char* name) const {
    return window.findChild<QWidget*>(QString::fromLatin1(name));
  }
  std::string Chat() const {
    return client.message_view.text().Bytes(0, client.message_view.size());
  }

  const std::string messages[9] = {
      "[msg]cht\001Ben: hello\001False",
      "[onl]Ann\0011\0011\0010\002Ben\0014\0012\0011",
      "[bre]Ben\0011\0012\0013\0014\0015\0016\0017\0018\0019\0011\0012\0011\0022",
      "[nws]First line\r\nSecond line",
      "[tif]1\0012\0013\0014",
      "[ttm]Foxes: Ann\002Hares: Ben",
      "[tdd]Foxes\001Hares",
      "[nws]" + std::string(5'000, 'W'),
      "[onl]broken",
  };
  std::mt19937 engine{7};
  Mood mood = Mood::Refuse;
  QHostAddress address = OwnLoopbackAddress();
  QTcpServer server;
  QtClientSocket socket;
  fakes::FakePlatform fake;
  Client client{
      {socket, fake.timers, fake.settings, fake.sounds, fake.web, fake.message_box, fake.instance},
      {.server_address = address.toString().toStdString()}};
  frmMain window{client};
};

TEST_F(HostileEvening, FiveHundredLoginsLaterEverythingWorks) {
  const auto sockets_before = OpenSockets();
  std::array<int, kMoods> logins{};
  for (int login = 0; login < 500; ++login) {
    ChangeMood(static_cast<Mood>(Dice(kMoods)));
    ++logins[static_cast<std::size_t>(mood)];
    LogIn();
    for (int i = Dice(12); i > 0; --i) {
      Act();
      QCoreApplication::processEvents();
      if (Dice(2) == 0) {
        DeleteClosedWindows();
      }
    }
    if (Dice(8) == 0) {
      fake.timers.Tick(std::chrono::seconds(1));
    }
  }
  EXPECT_TRUE(std::all_of(logins.begin(), logins.end(), [](int count) { return count > 30; }));

  ChangeMood(Mood::Accept);
  client.message_view.Clear();
  client.news.window().Show();
  LogIn();
  ASSERT_TRUE(
      QTest::qWaitFor([this] { return Chat().find("Connected as Ann") != std::string::npos; }));
  client.news.ShowNews("all quiet");
  const MessageView& news = window.findChild<MessageViewWidget*>(QStringLiteral("rbNews"))->model();
  EXPECT_EQ(news.text().Bytes(0, news.size()), "all quiet");
  window.close();
  EXPECT_EQ(fake.settings.commits, 1);
  EXPECT_FALSE(socket.IsConnected());
  EXPECT_GT(OpenSockets(), sockets_before) << "what is listened with";
  server.close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return OpenSockets() == sockets_before; }));
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(widget->isVisible()) << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace korvanta

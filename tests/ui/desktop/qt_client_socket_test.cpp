#include "ui/desktop/qt_client_socket.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <gmock/gmock.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace korvanta {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

const std::string kHost = "127.0.0.1";

/// A client socket with a record of its events, and a server on loopback that the test plays.
class QtClientSocketTest : public testing::Test {
 protected:
  QtClientSocketTest() {
    socket.on_connected = [this] { Note("connected"); };
    socket.on_closed = [this] { Note("closed"); };
    socket.on_data_arrival = [this](std::string_view block) {
      Note("data");
      blocks.emplace_back(block);
      received += block;
    };
    server.listen(QHostAddress(QString::fromStdString(kHost)));
  }

  void Note(const char* event) {
    EXPECT_FALSE(in_call) << event << " was raised from inside a call";
    events.emplace_back(event);
  }

  void Connect(std::uint16_t port) {
    in_call = true;
    socket.Connect(kHost, port);
    in_call = false;
  }

  /// Both ends connected.
  void Join() {
    Connect(server.serverPort());
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return server.hasPendingConnections() && socket.IsConnected(); }));
    peer = server.nextPendingConnection();
  }

  void PeerSends(const std::string& bytes) const {
    peer->write(bytes.data(), static_cast<qint64>(bytes.size()));
    peer->flush();
  }

  bool PeerIsLeft() const {
    return QTest::qWaitFor([this] { return peer->state() == QTcpSocket::UnconnectedState; });
  }

  bool WaitForEvents(std::size_t count) {
    return QTest::qWaitFor([=, this] { return events.size() == count; });
  }

  /// Lets everything happen that is about to: a second connection makes its way behind it.
  void Settle() const {
    QTcpServer other;
    other.listen(QHostAddress::LocalHost);
    QTcpSocket probe;
    probe.connectToHost(other.serverAddress(), other.serverPort());
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.hasPendingConnections(); }));
    QCoreApplication::processEvents();
  }

  QTcpServer server;
  QTcpSocket* peer = nullptr;
  QtClientSocket socket;
  bool in_call = false;
  std::vector<std::string> events;
  std::vector<std::string> blocks;
  std::string received;
};

TEST_F(QtClientSocketTest, BytesThatComeWithTheCloseComeFirstAndEachEventAlone) {
  const auto note_data = socket.on_data_arrival;
  socket.on_data_arrival = [&](std::string_view block) {
    note_data(block);
    if (block == "[a]\0"s) {
      PeerSends("[b]\0[c]rest"s);
      peer->close();
      in_call = true;
      Settle();
      in_call = false;
    }
  };
  Join();
  PeerSends("[a]\0"s);
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_THAT(events, ElementsAre("connected", "data", "data", "closed"));
  EXPECT_EQ(received, "[a]\0[b]\0[c]rest"s);
}

TEST_F(QtClientSocketTest, BytesBeforeAResetAreNotLostToAFailingSend) {
  Join();
  const std::string text = std::string(50'000, 'x') + '\0';
  PeerSends(text);
  // Closing with a linger time of zero resets the connection.
  const int descriptor = static_cast<int>(peer->socketDescriptor());
  for (int unconfirmed = 1; unconfirmed > 0;) {
    ASSERT_EQ(ioctl(descriptor, SIOCOUTQ, &unconfirmed), 0);
  }
  const linger reset{.l_onoff = 1, .l_linger = 0};
  ASSERT_EQ(setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &reset, sizeof reset), 0);
  peer->abort();
  socket.Send("x");
  ASSERT_TRUE(QTest::qWaitFor([&] { return events.back() == "closed"; }));
  EXPECT_EQ(std::count(events.begin(), events.end(), "closed"), 1);
  EXPECT_EQ(received.size(), text.size());
}

TEST_F(QtClientSocketTest, OurOwnCloseAndFailedAttemptsRaiseNothing) {
  Join();
  PeerSends("[a]\0"s);
  socket.Close();
  EXPECT_FALSE(socket.IsConnected());
  EXPECT_TRUE(PeerIsLeft());
  const std::uint16_t refused = server.serverPort();
  server.close();
  Connect(refused);
  Settle();
  socket.Connect("no address", refused);
  Settle();
  EXPECT_THAT(events, ElementsAre("connected"));
}

TEST_F(QtClientSocketTest, HandlerMayConnectAgainAndTheOldConnectionLeavesNothingBehind) {
  const auto note_data = socket.on_data_arrival;
  socket.on_data_arrival = [&](std::string_view block) {
    note_data(block);
    if (events.size() == 2) {
      Connect(server.serverPort());
    }
  };
  Join();
  PeerSends("[old]\0"s);
  ASSERT_TRUE(WaitForEvents(3));
  PeerSends("[late]\0"s);
  peer->close();
  peer = server.nextPendingConnection();
  PeerSends("[new]\0"s);
  ASSERT_TRUE(WaitForEvents(4));
  Settle();
  EXPECT_EQ(received, "[old]\0[new]\0"s);
  EXPECT_THAT(events, ElementsAre("connected", "data", "connected", "data"));
}

TEST_F(QtClientSocketTest, RestOfALongArrivalComesAfterItsWaitOrWithItsContinuation) {
  Join();
  QElapsedTimer time;
  time.start();
  PeerSends("[a]\0[b]half"s);
  ASSERT_TRUE(WaitForEvents(2));
  EXPECT_LT(time.elapsed(), 250) << "a short one comes at once";
  const std::string rest = "[b]" + std::string(BlockAssembler::kSmallestSegment, 'x');
  time.restart();
  PeerSends("[a]\0"s + rest);
  ASSERT_TRUE(WaitForEvents(4));
  EXPECT_GE(time.elapsed(), 250);
  PeerSends(rest);
  time.restart();
  ASSERT_TRUE(QTest::qWaitFor([&] { return time.elapsed() > 20; }));
  // The event loop is kept busy past the wait, with the second half coming in meanwhile.
  PeerSends(" second\0"s);
  while (time.elapsed() < 300) {
  }
  ASSERT_TRUE(WaitForEvents(5));
  EXPECT_THAT(blocks, ElementsAre("[a]\0[b]half"s, "[a]\0"s, rest, rest + " second\0"s));
}

TEST_F(QtClientSocketTest, AFloodLeavesTurnsOfTheEventLoopBetweenItsBlocks) {
  const std::string flood(4 * BlockAssembler::kBlockLimit, '\0');
  int turns = 0;
  QTimer other;
  QObject::connect(&other, &QTimer::timeout, &other, [&] { ++turns; });
  Join();
  other.start(0);
  PeerSends(flood);
  ASSERT_TRUE(QTest::qWaitFor([&] { return received.size() == flood.size(); }));
  EXPECT_GE(blocks.size(), 4U);
  EXPECT_GE(turns, static_cast<int>(blocks.size()));
}

TEST_F(QtClientSocketTest, DrainSendsWhatIsLeftAndWaitsASecondAtMost) {
  socket.Send("too early");
  for (const bool peer_reads : {true, false}) {
    Join();
    PeerSends("unread bytes that would make the close a reset");
    peer->setReadBufferSize(peer_reads ? 0 : 1);
    // The latter is more than both systems hold.
    const std::string text = peer_reads ? "[dis]\xff\0"s : std::string(24 << 20, 'x');
    socket.Send(text);
    QElapsedTimer time;
    time.start();
    socket.Drain();
    EXPECT_TRUE(peer_reads ? time.elapsed() < 500 : time.elapsed() >= 900) << time.elapsed();
    EXPECT_LT(time.elapsed(), 1300);
    EXPECT_FALSE(socket.IsConnected());
    if (peer_reads) {
      ASSERT_TRUE(PeerIsLeft());
      EXPECT_EQ(peer->error(), QTcpSocket::RemoteHostClosedError);
      EXPECT_EQ(peer->readAll().toStdString(), text);
    }
  }
  EXPECT_THAT(events, ElementsAre("connected", "connected"));
}

}  // namespace
}  // namespace korvanta

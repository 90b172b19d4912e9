/// What becomes of a connection whose link goes away without a word, over the system's own network:
/// the process takes itself a network namespace, which needs no privilege where the system grants
/// user namespaces.
#include <QTcpServer>
#include <QTcpSocket>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <unistd.h>

#include "harness/host.h"
#include "ui/desktop/qt_client_socket.h"

namespace korvanta::harness {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Moves the process into a network of its own. Empty, or why that cannot be.
std::string EnterNetwork() {
  const auto user = std::to_string(::getuid());
  const auto group = std::to_string(::getgid());
  if (::unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0) {
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    return {};
  }
  return ::unshare(CLONE_NEWNET) == 0 ? "" : std::strerror(errno);
}

void Ip(const char* arguments) {
  const ToolResult result =
      RunTool(QStringLiteral("ip"), QString::fromLatin1(arguments).split(u' '), BareEnvironment());
  ASSERT_EQ(result.status, 0) << arguments << ": " << result.errors.constData();
}

/// A connection of the client's to a server of its own on that address.
struct Line {
  explicit Line(const std::string& host) {
    const bool listens = server.listen(QHostAddress(QString::fromStdString(host)));
    socket.on_connected = [this] { is_connected = true; };
    socket.on_closed = [this] { closed = Clock::now(); };
    socket.Connect(host, server.serverPort());
    WaitUntil(QStringLiteral("the connection stands"), [&] {
      return listens && is_connected &&
             (peer != nullptr || (peer = server.nextPendingConnection()));
    });
  }

  QTcpServer server;
  bool is_connected = false;
  Clock::time_point closed;
  QtClientSocket socket;
  QTcpSocket* peer = nullptr;
};

TEST(LostLink, EndsTheConnectionAfterAMinuteWhetherOrNotSomethingWasSaid) {
  if (const std::string reason = EnterNetwork(); !reason.empty()) {
    GTEST_SKIP() << "no network namespace is to be had: " << reason;
  }
  Ip("link set lo up");
  Ip("address add 10.0.0.1/32 dev lo");
  Line silent("10.0.0.1");
  Line speaking("10.0.0.1");
  const Line staying("127.0.0.1");

  Ip("address delete 10.0.0.1/32 dev lo");  // no packet finds its way from now on
  const Clock::time_point lost = Clock::now();
  speaking.socket.Send(std::string_view("[ctc]c anyone here?\0", 20));
  WaitUntil(
      QStringLiteral("both lost connections are closed"),
      [&] { return silent.closed > lost && speaking.closed > lost; }, 90s);

  for (const Line* line : {&silent, &speaking}) {
    EXPECT_GT(line->closed - lost, 50s) << "a shorter gap is survived";
    EXPECT_FALSE(line->socket.IsConnected());
    EXPECT_EQ(line->peer->bytesAvailable(), 0);
  }
  EXPECT_TRUE(staying.socket.IsConnected());
  EXPECT_EQ(staying.peer->bytesAvailable(), 0) << "the client says nothing to keep a connection";
}

}  // namespace
}  // namespace korvanta::harness

/// What becomes of a connection whose link goes away without a word, over the system's own network:
/// the process takes itself two network namespaces, which need no privilege where the system grants
/// user namespaces.
#include <QTcpServer>
#include <QTcpSocket>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <unistd.h>

#include "harness/host.h"
#include "ui/desktop/qt_client_socket.h"

namespace korvanta::process {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const std::string kFarHost = "10.0.0.1";
const std::string kNearHost = "127.0.0.1";

void Listen(QTcpServer& server, const std::string& host) {
  ASSERT_TRUE(server.listen(QHostAddress(QString::fromStdString(host))));
}

/// Moves the process into a network of its own. Empty, or why that cannot be.
std::string EnterNetwork() {
  const auto user = std::to_string(getuid());
  const auto group = std::to_string(getgid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0) {
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    return {};
  }
  return unshare(CLONE_NEWNET) == 0 ? "" : std::strerror(errno);
}

/// An own connection to `server`, with what the server's end has heard.
struct Line {
  Line(const std::string& host, QTcpServer& server) {
    socket.on_connected = [this] { is_connected = true; };
    socket.on_closed = [this] { closed = Clock::now(); };
    socket.Connect(host, server.serverPort());
    WaitUntil(QStringLiteral("the connection stands"), [&] {
      return is_connected && (peer != nullptr || (peer = server.nextPendingConnection()));
    });
  }

  bool is_connected = false;
  Clock::time_point closed;
  QtClientSocket socket;
  QTcpSocket* peer = nullptr;
};

class LostLink : public testing::Test {
 protected:
  void SetUp() override {
    if (const std::string reason = EnterNetwork(); !reason.empty()) {
      GTEST_SKIP() << "no network namespace is to be had: " << reason;
    }
    far_network_ = open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(unshare(CLONE_NEWNET), 0);
    near_network_ = open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
    const ToolResult pair = RunIp("link add near type veth peer name far netns /proc/" +
                                  std::to_string(getpid()) + "/fd/" + std::to_string(far_network_));
    if (pair.status != 0) {
      GTEST_SKIP() << "no link is to be had: " << pair.errors.constData();
    }
    Ip("link set lo up");
    Ip("address add 10.0.0.2/24 dev near");
    Ip("link set near up");
    AtTheFarEnd([this] {
      Ip("address add 10.0.0.1/24 dev far");
      Ip("link set far up");
      Listen(far_server_, kFarHost);
    });
  }

  void AtTheFarEnd(const std::function<void()>& act) const {
    ASSERT_EQ(setns(far_network_, CLONE_NEWNET), 0);
    act();
    ASSERT_EQ(setns(near_network_, CLONE_NEWNET), 0);
  }

  static ToolResult RunIp(const std::string& arguments) {
    const QStringList words = QString::fromStdString(arguments).split(QLatin1Char(' '));
    return RunTool(QStringLiteral("ip"), words, BareEnvironment());
  }
  static void Ip(const std::string& arguments) {
    const ToolResult result = RunIp(arguments);
    ASSERT_EQ(result.status, 0) << arguments << ": " << result.errors.constData();
  }

  int far_network_ = -1;
  int near_network_ = -1;
  QTcpServer far_server_;
};

TEST_F(LostLink, EndsTheConnectionAfterAMinuteWhetherOrNotSomethingWasSaid) {
  Line silent(kFarHost, far_server_);
  Line speaking(kFarHost, far_server_);
  QTcpServer near_server;
  Listen(near_server, kNearHost);
  Line alive(kNearHost, near_server);

  AtTheFarEnd([] { Ip("link set far down"); });
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
  EXPECT_TRUE(alive.socket.IsConnected());
  EXPECT_EQ(alive.peer->bytesAvailable(), 0) << "the client says nothing to keep a connection";
}

}  // namespace
}  // namespace korvanta::process

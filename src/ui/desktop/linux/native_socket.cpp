#include "ui/desktop/native_socket.h"

#include <QTcpSocket>
#include <array>
#include <cerrno>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <thread>
#include <utility>

namespace korvanta::native_socket {
namespace {

constexpr std::array<std::pair<int, int>, 4> kKeepAliveOptions = {{
    {TCP_KEEPIDLE, 30},          // seconds
    {TCP_KEEPINTVL, 10},         // seconds
    {TCP_KEEPCNT, 3},            // probes
    {TCP_USER_TIMEOUT, 60'000},  // milliseconds; the same minute for unacknowledged bytes
}};

/// No event signals the acknowledgement of sent bytes, so it is polled.
constexpr std::chrono::milliseconds kPollInterval{5};

/// Per call; more than a system buffers for one connection.
constexpr std::size_t kDiscardLimit = std::size_t{64} * 1024 * 1024;

/// Sent bytes, including the end of the stream, that the peer has not acknowledged.
int Unacknowledged(int descriptor) {
  int count = 0;
  return ioctl(descriptor, SIOCOUTQ, &count) == 0 ? count : 0;
}

}  // namespace

void SetKeepAlive(qintptr descriptor) {
  const int socket = static_cast<int>(descriptor);
  const int on = 1;
  setsockopt(socket, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
  for (const auto& [option, value] : kKeepAliveOptions) {
    setsockopt(socket, IPPROTO_TCP, option, &value, sizeof value);
  }
}

std::string ReadPending(qintptr descriptor) {
  std::string bytes;
  std::array<char, 16384> buffer;
  for (;;) {
    const ssize_t count =
        recv(static_cast<int>(descriptor), buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count > 0) {
      bytes.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
      return bytes;
    }
  }
}

void FinishSending(QTcpSocket& socket, std::chrono::milliseconds limit) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + limit;
  for (; Clock::now() < deadline; std::this_thread::sleep_for(kPollInterval)) {
    socket.flush();
    if (socket.state() != QAbstractSocket::ConnectedState) {
      return;
    }
    const int descriptor = static_cast<int>(socket.socketDescriptor());
    recv(descriptor, nullptr, kDiscardLimit, MSG_DONTWAIT | MSG_TRUNC);
    if (socket.bytesToWrite() > 0) {
      continue;
    }
    // Shutting down again succeeds, unless the connection is over.
    if (shutdown(descriptor, SHUT_WR) != 0 || Unacknowledged(descriptor) == 0) {
      return;
    }
  }
}

}  // namespace korvanta::native_socket

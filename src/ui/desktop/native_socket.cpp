#include "ui/desktop/native_socket.h"

#include <QTcpSocket>
#include <algorithm>
#include <array>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#endif

namespace korvanta::native_socket {

#ifdef Q_OS_LINUX

namespace {

constexpr std::array<std::pair<int, int>, 4> kKeepAliveOptions = {{
    {TCP_KEEPIDLE, 30},          // seconds
    {TCP_KEEPINTVL, 10},         // seconds
    {TCP_KEEPCNT, 3},            // probes
    {TCP_USER_TIMEOUT, 60'000},  // milliseconds; the same minute for unconfirmed bytes
}};

/// The confirmation of sent bytes wakes nobody, so it is looked for this often.
constexpr std::chrono::milliseconds kLookInterval{5};

struct Arrived {
  std::string bytes;
  bool at_end = false;  ///< the peer sends no more
  bool broken = false;
};

Arrived Read(int descriptor) {
  Arrived arrived;
  std::array<char, 16384> buffer;
  for (;;) {
    const ssize_t count = recv(descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count > 0) {
      arrived.bytes.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
      arrived.at_end = true;
      return arrived;
    } else if (errno != EINTR) {
      arrived.broken = errno != EAGAIN && errno != EWOULDBLOCK;
      return arrived;
    }
  }
}

/// Bytes sent, the end of the stream among them, that the peer's system has not confirmed.
int Unconfirmed(int descriptor) {
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

std::string ReadWaiting(qintptr descriptor) { return Read(static_cast<int>(descriptor)).bytes; }

void FinishSending(QTcpSocket& socket, std::chrono::milliseconds limit) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + limit;
  bool is_shut = false;
  bool at_end = false;
  while (Clock::now() < deadline) {
    socket.flush();
    if (socket.state() != QAbstractSocket::ConnectedState) {
      return;
    }
    const int descriptor = static_cast<int>(socket.socketDescriptor());
    const Arrived arrived = Read(descriptor);
    if (arrived.broken) {
      return;
    }
    at_end = at_end || arrived.at_end;
    const bool all_handed_over = socket.bytesToWrite() == 0;
    if (all_handed_over && !is_shut) {
      shutdown(descriptor, SHUT_WR);
      is_shut = true;
    }
    if (is_shut && Unconfirmed(descriptor) == 0) {
      return;
    }
    const auto events = static_cast<short>((at_end ? 0 : POLLIN) | (all_handed_over ? 0 : POLLOUT));
    pollfd wait{descriptor, events, 0};
    poll(&wait, 1, static_cast<int>(kLookInterval.count()));
  }
}

#else

void SetKeepAlive(qintptr) {}

std::string ReadWaiting(qintptr) { return {}; }

void FinishSending(QTcpSocket& socket, std::chrono::milliseconds limit) {
  socket.readAll();
  socket.disconnectFromHost();
  if (socket.state() != QAbstractSocket::UnconnectedState) {
    socket.waitForDisconnected(static_cast<int>(limit.count()));
  }
}

#endif

}  // namespace korvanta::native_socket

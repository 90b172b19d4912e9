#include "practice/network/native.h"

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace korvanta::practice {
namespace {

/// A signal writes one byte into the first; the event loop watches the second.
std::array<int, 2> sockets;

extern "C" void WakeEventLoop(int /*signal*/) {
  const int interrupted_error = errno;
  const char byte = 0;
  [[maybe_unused]] const auto written = ::write(sockets[0], &byte, 1);
  errno = interrupted_error;
}

}  // namespace

bool OnEndRequest(QObject& context, std::function<void()> end) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets.data()) != 0) {
    return false;
  }
  auto* const signalled = new QSocketNotifier(sockets[1], QSocketNotifier::Read, &context);
  QObject::connect(signalled, &QSocketNotifier::activated, &context, [end = std::move(end)] {
    char byte = 0;
    [[maybe_unused]] const auto taken = ::read(sockets[1], &byte, 1);
    end();
  });
  struct sigaction action = {};
  action.sa_handler = WakeEventLoop;
  action.sa_flags = SA_RESTART;
  return ::sigaction(SIGTERM, &action, nullptr) == 0 && ::sigaction(SIGINT, &action, nullptr) == 0;
}

/// Each connection takes a file; the usual limit is too low for thousands.
void RaiseConnectionLimit() {
  rlimit limit = {};
  if (::getrlimit(RLIMIT_NOFILE, &limit) == 0) {
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
  }
}

void ResetWhenClosed(qintptr socket) {
  const linger at_once = {1, 0};
  ::setsockopt(static_cast<int>(socket), SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
}

void EndStream(qintptr socket) { ::shutdown(static_cast<int>(socket), SHUT_WR); }

}  // namespace korvanta::practice

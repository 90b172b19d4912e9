#include "system/end_requests.h"

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace korvanta {
namespace {

/// The signal handler writes into the first; the event loop watches the second. Global, since a
/// signal handler has no other context.
std::array<int, 2> sockets;

extern "C" void WakeEventLoop(int /*signal*/) {
  const int interrupted_error = errno;
  const char byte = 0;
  [[maybe_unused]] const auto written = ::write(sockets[0], &byte, 1);
  errno = interrupted_error;
}

}  // namespace

void OnEndRequest(QObject& context, std::function<void()> end) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, sockets.data()) != 0) {
    return;
  }
  auto* const signalled = new QSocketNotifier(sockets[1], QSocketNotifier::Read, &context);
  QObject::connect(signalled, &QSocketNotifier::activated, &context,
                   [signalled, end = std::move(end)] {
                     signalled->setEnabled(false);
                     end();
                   });
  struct sigaction action = {};
  action.sa_handler = WakeEventLoop;
  action.sa_flags = SA_RESTART | SA_RESETHAND;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction former = {};
    if (::sigaction(signal, nullptr, &former) == 0 && former.sa_handler != SIG_IGN) {
      ::sigaction(signal, &action, nullptr);
    }
  }
}

}  // namespace korvanta

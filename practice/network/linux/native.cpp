#include "practice/network/native.h"

#include <sys/resource.h>
#include <sys/socket.h>

namespace korvanta::practice {

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

#include "practice/network/native_socket.h"

#include <sys/socket.h>

namespace korvanta::practice::native_socket {

void ResetWhenClosed(qintptr descriptor) {
  const linger at_once = {1, 0};
  ::setsockopt(static_cast<int>(descriptor), SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
}

void EndStream(qintptr descriptor) { ::shutdown(static_cast<int>(descriptor), SHUT_WR); }

}  // namespace korvanta::practice::native_socket

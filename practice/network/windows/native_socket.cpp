#include "practice/network/native_socket.h"

#include <winsock2.h>

namespace korvanta::practice::native_socket {

void ResetWhenClosed(qintptr descriptor) {
  const linger at_once = {1, 0};
  setsockopt(static_cast<SOCKET>(descriptor), SOL_SOCKET, SO_LINGER,
             reinterpret_cast<const char*>(&at_once), sizeof at_once);
}

void EndStream(qintptr descriptor) { shutdown(static_cast<SOCKET>(descriptor), SD_SEND); }

}  // namespace korvanta::practice::native_socket

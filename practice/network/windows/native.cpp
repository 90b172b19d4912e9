#include "practice/network/native.h"

#include <winsock2.h>

namespace korvanta::practice {

/// The system has no limit of its own for each program.
void RaiseConnectionLimit() {}

void ResetWhenClosed(qintptr socket) {
  const linger at_once = {1, 0};
  setsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_LINGER,
             reinterpret_cast<const char*>(&at_once), sizeof at_once);
}

void EndStream(qintptr socket) { shutdown(static_cast<SOCKET>(socket), SD_SEND); }

}  // namespace korvanta::practice

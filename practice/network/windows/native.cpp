#include "practice/network/native.h"

#include <QObject>
#include <utility>
#include <winsock2.h>

namespace korvanta::practice {
namespace {

/// Global, for the handler below is given nothing else.
QObject* end_context = nullptr;
std::function<void()> on_end;

/// Runs on a thread of its own.
BOOL WINAPI WakeEventLoop(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
    return FALSE;
  }
  QMetaObject::invokeMethod(
      end_context, [] { on_end(); }, Qt::QueuedConnection);
  return TRUE;
}

}  // namespace

bool OnEndRequest(QObject& context, std::function<void()> end) {
  end_context = &context;
  on_end = std::move(end);
  QObject::connect(&context, &QObject::destroyed,
                   [] { SetConsoleCtrlHandler(WakeEventLoop, FALSE); });
  return SetConsoleCtrlHandler(WakeEventLoop, TRUE) != FALSE;
}

/// The system has no limit of its own for each program.
void RaiseConnectionLimit() {}

void ResetWhenClosed(qintptr socket) {
  const linger at_once = {1, 0};
  setsockopt(static_cast<SOCKET>(socket), SOL_SOCKET, SO_LINGER,
             reinterpret_cast<const char*>(&at_once), sizeof at_once);
}

void EndStream(qintptr socket) { shutdown(static_cast<SOCKET>(socket), SD_SEND); }

}  // namespace korvanta::practice

#include "system/end_requests.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QObject>
#include <atomic>
#include <qt_windows.h>
#include <utility>

namespace korvanta {
namespace {

/// Windows notifies every top-level window of the end of the session, hidden ones included, and the
/// handler of a console on a thread of its own.
class EndRequests final : public QObject, public QAbstractNativeEventFilter {
 public:
  EndRequests(QObject& context, std::function<void()> end)
      : QObject(&context), end_(std::move(end)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    only_ = this;
    SetConsoleCtrlHandler(HandleConsole, TRUE);
  }

  ~EndRequests() override { SetConsoleCtrlHandler(HandleConsole, FALSE); }

  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const auto& event = *static_cast<const MSG*>(message);
    if (event.message == WM_ENDSESSION && event.wParam != FALSE && !is_ending_.exchange(true)) {
      end_();
    }
    return false;
  }

 private:
  static BOOL WINAPI HandleConsole(DWORD event) {
    if ((event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) || only_->is_ending_.exchange(true)) {
      return FALSE;
    }
    QMetaObject::invokeMethod(only_, only_->end_, Qt::QueuedConnection);
    return TRUE;
  }

  /// The console's handler is given nothing else.
  static inline EndRequests* only_ = nullptr;

  std::function<void()> end_;
  std::atomic<bool> is_ending_ = false;
};

}  // namespace

void OnEndRequest(QObject& context, std::function<void()> end) {
  new EndRequests(context, std::move(end));
}

}  // namespace korvanta

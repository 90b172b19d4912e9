#include "ui/desktop/end_requests.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QObject>
#include <qt_windows.h>
#include <utility>

namespace korvanta {
namespace {

/// Every top-level window is notified of the end of the session, hidden ones included.
class SessionEndFilter final : public QObject, public QAbstractNativeEventFilter {
 public:
  SessionEndFilter(QObject& context, std::function<void()> end)
      : QObject(&context), end_(std::move(end)) {
    QCoreApplication::instance()->installNativeEventFilter(this);
  }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const auto& event = *static_cast<const MSG*>(message);
    const bool is_end = event.message == WM_ENDSESSION && event.wParam != FALSE;
    if (is_end && !std::exchange(has_ended_, true)) {
      end_();
    }
    return false;
  }

 private:
  std::function<void()> end_;
  bool has_ended_ = false;
};

}  // namespace

void OnEndRequest(QObject& context, std::function<void()> end) {
  new SessionEndFilter(context, std::move(end));
}

}  // namespace korvanta

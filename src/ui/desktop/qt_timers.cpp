#include "ui/desktop/qt_timers.h"

#include <QTimer>

namespace korvanta {
namespace {

class QtTimer final : public Timer {
 public:
  explicit QtTimer(std::chrono::milliseconds interval) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(interval);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      if (on_tick) {
        on_tick();
      }
    });
  }

  void SetEnabled(bool enabled) override {
    if (enabled) {
      timer_.start();
    } else {
      timer_.stop();
    }
  }

  bool IsEnabled() const override { return timer_.isActive(); }

 private:
  QTimer timer_;
};

}  // namespace

std::unique_ptr<Timer> QtTimerFactory::MakeTimer(std::chrono::milliseconds interval) {
  return std::make_unique<QtTimer>(interval);
}

}  // namespace korvanta

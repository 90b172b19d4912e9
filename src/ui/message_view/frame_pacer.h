/// Limits the updating of the message view to once per frame, however often its text changes.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <utility>

namespace korvanta {

class FramePacer {
 public:
  /// `frame` is called for each frame, by a timer named "frame" that is a child of `owner`.
  FramePacer(QObject* owner, std::function<void()> frame) : timer_(owner) {
    timer_.setObjectName(QStringLiteral("frame"));
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, owner, [this, frame = std::move(frame)] {
      last_.restart();
      frame();
    });
  }

  /// Requests a frame, as soon as the previous one is long enough ago.
  void Schedule() {
    if (!timer_.isActive()) {
      const qint64 since = last_.isValid() ? last_.elapsed() : kMilliseconds;
      timer_.start(static_cast<int>(std::max<qint64>(0, kMilliseconds - since)));
    }
  }

 private:
  static constexpr int kMilliseconds = 16;

  QTimer timer_;
  QElapsedTimer last_;
};

}  // namespace korvanta

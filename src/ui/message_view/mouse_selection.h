/// Selecting by mouse in the message view: converts single, double and triple clicks and drags to
/// calls of the caret mover.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>

#include "lobby/caret_mover.h"
#include "ui/message_view/message_canvas.h"

class QMouseEvent;

namespace korvanta {

class MouseSelection : public QObject {
 public:
  /// Filters the mouse events of `viewport`. All must outlive it.
  MouseSelection(QWidget& viewport, const MessageCanvas& canvas, ScrollPosition& position,
                 CaretMover& caret);

  /// Called when the left button is released.
  std::function<void()> on_released;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Press(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  void DragToPointer();

  QWidget& viewport_;
  const MessageCanvas& canvas_;
  ScrollPosition& position_;
  CaretMover& caret_;
  QPoint pointer_;     // where the mouse was last
  QTimer drag_timer_;  // scrolls while the pointer is held beyond an edge
  QElapsedTimer last_double_click_;
};

}  // namespace korvanta

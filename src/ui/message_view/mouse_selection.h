/// The mouse in the message view's text: clicks, double and triple clicks and drags become presses
/// and moves of the caret mover.
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
  /// Takes the mouse events of `viewport`. All of them outlive this.
  MouseSelection(QWidget& viewport, const MessageCanvas& canvas, ScrollPosition& position,
                 CaretMover& caret);

  /// Called when the button goes up.
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

#include "ui/message_view/mouse_selection.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWidget>

namespace korvanta {
namespace {

using Unit = CaretMover::Unit;

constexpr int kDragMilliseconds = 40;  // between scroll steps while a drag is held beyond an edge

}  // namespace

MouseSelection::MouseSelection(QWidget& viewport, const MessageCanvas& canvas,
                               ScrollPosition& position, CaretMover& caret)
    : viewport_(viewport), canvas_(canvas), position_(position), caret_(caret) {
  connect(&drag_timer_, &QTimer::timeout, this, [this] { DragToPointer(); });
  viewport.installEventFilter(this);
}

bool MouseSelection::eventFilter(QObject* /*watched*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
      if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (event->type() != QEvent::MouseButtonRelease) {
          Press(*static_cast<QMouseEvent*>(event));
        } else {
          drag_timer_.stop();
          on_released();
        }
      }
      return true;
    case QEvent::MouseMove:
      Move(*static_cast<QMouseEvent*>(event));
      return true;
    default:
      return false;
  }
}

/// A press soon after a double click at the same position is a triple click.
void MouseSelection::Press(const QMouseEvent& event) {
  const bool is_double = event.type() == QEvent::MouseButtonDblClick;
  const bool is_triple =
      !is_double && last_double_click_.isValid() &&
      !last_double_click_.hasExpired(QApplication::styleHints()->mouseDoubleClickInterval()) &&
      (event.pos() - pointer_).manhattanLength() < QApplication::startDragDistance();
  last_double_click_.invalidate();
  if (is_double) {
    last_double_click_.start();
  }
  pointer_ = event.pos();
  const Unit unit = is_double ? Unit::Word : is_triple ? Unit::Line : Unit::Character;
  caret_.Press(canvas_.PositionAt(pointer_), unit, event.modifiers().testFlag(Qt::ShiftModifier));
}

void MouseSelection::Move(const QMouseEvent& event) {
  if (!event.buttons().testFlag(Qt::LeftButton)) {
    return;
  }
  pointer_ = event.pos();
  const bool outside = pointer_.y() < 0 || pointer_.y() >= viewport_.height();
  if (outside && !drag_timer_.isActive()) {
    drag_timer_.start(kDragMilliseconds);
  } else if (!outside) {
    drag_timer_.stop();
    DragToPointer();
  }
}

/// Beyond an edge it scrolls towards the pointer: the further away, the faster.
void MouseSelection::DragToPointer() {
  const int below = pointer_.y() - viewport_.height() + 1;
  if (pointer_.y() < 0) {
    position_.ScrollRows(-1 + pointer_.y() / canvas_.row_height());
  } else if (below > 0) {
    position_.ScrollRows(1 + below / canvas_.row_height());
  }
  caret_.DragTo(canvas_.PositionAt(pointer_));
}

}  // namespace korvanta

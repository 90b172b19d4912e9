/// How keyboard, mouse and context menu move the caret of the message view.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleHints>
#include <algorithm>
#include <array>

#include "ui/kit/text.h"
#include "ui/message_view/message_view_widget.h"

namespace korvanta {
namespace {

using Aim = MessageCanvas::Aim;

constexpr int kDragMilliseconds = 40;  // between two steps of scrolling by a held drag

enum class Motion {
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  WordLeft,
  WordRight,
  RowStart,
  RowEnd,
  Start,
  End,
};

struct MotionKeys {
  Motion motion;
  QKeySequence::StandardKey move;
  QKeySequence::StandardKey select;
};

constexpr std::array<MotionKeys, 12> kMotionKeys = {{
    {Motion::Left, QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar},
    {Motion::Right, QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar},
    {Motion::Up, QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine},
    {Motion::Down, QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine},
    {Motion::PageUp, QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage},
    {Motion::PageDown, QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage},
    {Motion::WordLeft, QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord},
    {Motion::WordRight, QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord},
    {Motion::RowStart, QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine},
    {Motion::RowEnd, QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine},
    {Motion::Start, QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument},
    {Motion::End, QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument},
}};

const MotionKeys* MotionOf(QKeyEvent* event) {
  const auto keys = std::find_if(
      kMotionKeys.begin(), kMotionKeys.end(),
      [event](const MotionKeys& k) { return event->matches(k.move) || event->matches(k.select); });
  return keys == kMotionKeys.end() ? nullptr : keys;
}

}  // namespace

void MessageViewWidget::Copy() const {
  if (!view_.selection().empty()) {
    QApplication::clipboard()->setText(ToQString(view_.SelectedText()));
  }
}

bool MessageViewWidget::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    auto* const key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll) ||
        MotionOf(key) != nullptr) {
      event->accept();
      return true;
    }
  }
  return QAbstractScrollArea::event(event);
}

void MessageViewWidget::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  if (event->matches(QKeySequence::Copy)) {
    Copy();
  } else if (event->matches(QKeySequence::SelectAll)) {
    view_.SelectAll();
  } else if (event->key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier) {
    OpenMenuAtCaret();
  } else if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_Up) {
    ScrollRows(-1);
  } else if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_Down) {
    ScrollRows(1);
  } else if (!MoveByKey(event)) {
    event->ignore();
  }
}

bool MessageViewWidget::MoveByKey(QKeyEvent* event) {
  const MotionKeys* const keys = MotionOf(event);
  if (keys == nullptr) {
    return false;
  }
  const Motion motion = keys->motion;
  const bool extend = event->matches(keys->select);
  const bool keeps_column = motion == Motion::Up || motion == Motion::Down ||
                            motion == Motion::PageUp || motion == Motion::PageDown;
  const ColouredText& text = view_.text();
  const std::size_t caret = view_.caret();
  const TextRange selection = view_.selection();
  const bool collapse = !extend && !selection.empty();
  const int page = static_cast<int>(std::max<std::size_t>(2, canvas_.WholeRows())) - 1;
  if (column_ < 0 || !keeps_column) {
    column_ = keeps_column ? canvas_.XOf(caret) : -1;
  }
  const auto target = [&]() -> std::size_t {
    switch (motion) {
      case Motion::Left:
        return collapse ? selection.from : PreviousCaretPlace(text, caret);
      case Motion::Right:
        return collapse ? selection.to : NextCaretPlace(text, caret);
      case Motion::Up:
        return RowsFromCaret(-1);
      case Motion::Down:
        return RowsFromCaret(1);
      case Motion::PageUp:
        return RowsFromCaret(-page);
      case Motion::PageDown:
        return RowsFromCaret(page);
      case Motion::WordLeft:
        return PreviousWord(text, caret);
      case Motion::WordRight:
        return NextWord(text, caret);
      case Motion::RowStart:
        return canvas_.rows().StartOf(caret);
      case Motion::RowEnd:
        return canvas_.OffsetInRow(canvas_.rows().StartOf(caret),
                                   static_cast<float>(viewport()->width()), Aim::Caret);
      case Motion::Start:
        return 0;
      case Motion::End:
        return view_.size();
    }
    return caret;
  };
  MoveCaret(target(), extend);
  return true;
}

/// The place that many rows below the caret, or above it, nearest to the column.
std::size_t MessageViewWidget::RowsFromCaret(int rows) {
  const TextRows& text_rows = canvas_.rows();
  const std::size_t row = text_rows.StartOf(view_.caret());
  const std::size_t target = rows < 0 ? text_rows.Up(row, static_cast<std::size_t>(-rows))
                                      : text_rows.Down(row, static_cast<std::size_t>(rows));
  return canvas_.OffsetInRow(target, column_, Aim::Caret);
}

void MessageViewWidget::MoveCaret(std::size_t offset, bool extend) {
  SettleChanges();
  view_.MoveCaret(offset, extend);
  ShowOffset(view_.caret());
}

void MessageViewWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    return;
  }
  const bool triple =
      last_double_click_.isValid() &&
      !last_double_click_.hasExpired(QApplication::styleHints()->mouseDoubleClickInterval()) &&
      (event->pos() - pointer_).manhattanLength() < QApplication::startDragDistance();
  last_double_click_.invalidate();
  PressAt(event->pos(), triple ? Unit::Line : Unit::Character,
          event->modifiers().testFlag(Qt::ShiftModifier));
}

void MessageViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    last_double_click_.start();
    PressAt(event->pos(), Unit::Word, false);
  }
}

void MessageViewWidget::PressAt(QPoint point, Unit unit, bool extend) {
  pointer_ = point;
  unit_ = unit;
  column_ = -1;
  if (extend && unit == Unit::Character) {
    origin_ = {view_.anchor(), view_.anchor()};
    DragTo(point);
    return;
  }
  origin_ = UnitAt(point, Aim::Caret);
  view_.Select(origin_.from, origin_.to);
}

void MessageViewWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) {
    return;
  }
  pointer_ = event->pos();
  const bool outside = pointer_.y() < 0 || pointer_.y() >= viewport()->height();
  if (outside && !drag_timer_.isActive()) {
    drag_timer_.start(kDragMilliseconds);
  } else if (!outside) {
    drag_timer_.stop();
    DragTo(pointer_);
  }
}

/// Extends the selection to the pointer, scrolling towards it when it is beyond an edge: the
/// further away, the faster.
void MessageViewWidget::DragTo(QPoint point) {
  const int below = point.y() - viewport()->height() + 1;
  if (point.y() < 0) {
    ScrollRows(-1 + point.y() / canvas_.row_height());
  } else if (below > 0) {
    ScrollRows(1 + below / canvas_.row_height());
  }
  const TextRange reached = UnitAt(point, Aim::Edge);
  if (reached.from < origin_.from) {
    view_.Select(origin_.to, reached.from);
  } else {
    view_.Select(origin_.from, std::max(reached.to, origin_.to));
  }
}

TextRange MessageViewWidget::UnitAt(QPoint point, Aim character_aim) const {
  const Aim aim = unit_ == Unit::Character ? character_aim : Aim::Byte;
  const std::size_t offset = canvas_.OffsetAt(point, top_, aim);
  switch (unit_) {
    case Unit::Word:
      return WordAt(view_.text(), offset);
    case Unit::Line:
      return LineAt(view_.text(), offset);
    case Unit::Character:
      break;
  }
  return {offset, offset};
}

void MessageViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    return;
  }
  drag_timer_.stop();
  QClipboard* const clipboard = QApplication::clipboard();
  if (clipboard->supportsSelection() && !view_.selection().empty()) {
    clipboard->setText(ToQString(view_.SelectedText()), QClipboard::Selection);
  }
}

void MessageViewWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) {
    OpenMenuAtCaret();
  } else {
    OpenMenu(event->globalPos());
  }
}

void MessageViewWidget::OpenMenuAtCaret() {
  const auto caret = canvas_.CaretRect(view_.caret(), top_);
  const QPoint place = caret ? caret->bottomLeft() : viewport()->rect().center();
  OpenMenu(viewport()->mapToGlobal(place));
}

void MessageViewWidget::OpenMenu(QPoint global_position) {
  auto* const menu = new QMenu(this);
  menu->setAccessibleName(accessibleName());
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* const copy = menu->addAction(QStringLiteral("&Copy"), this, [this] { Copy(); });
  copy->setShortcut(QKeySequence::Copy);
  copy->setEnabled(!view_.selection().empty());
  QAction* const all =
      menu->addAction(QStringLiteral("Select &All"), this, [this] { view_.SelectAll(); });
  all->setShortcut(QKeySequence::SelectAll);
  menu->addSeparator();
  menu->addActions(actions());
  for (QAction* action : menu->actions()) {
    action->setShortcutVisibleInContextMenu(true);
  }
  menu->popup(global_position);
}

}  // namespace korvanta

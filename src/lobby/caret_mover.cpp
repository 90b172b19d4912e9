#include "lobby/caret_mover.h"

#include <limits>

namespace korvanta {

void CaretMover::Move(Motion motion, bool extend) {
  const bool keeps_column = motion == Motion::Up || motion == Motion::Down ||
                            motion == Motion::PageUp || motion == Motion::PageDown;
  if (!keeps_column) {
    column_ = -1;
  } else if (column_ < 0) {
    column_ = position_.rows().XOf(view_.caret());
  }
  view_.MoveCaret(Target(motion, extend), extend);
  position_.Show(view_.caret());
}

void CaretMover::Press(ScreenPosition place, Unit unit, bool extend) {
  unit_ = unit;
  column_ = -1;
  if (extend && unit == Unit::Character) {
    pressed_ = {view_.anchor(), view_.anchor()};
    DragTo(place);
    return;
  }
  pressed_ = UnitAt(place, Aim::Caret);
  view_.Select(pressed_.from, pressed_.to);
}

void CaretMover::DragTo(ScreenPosition place) {
  const TextRange reached = UnitAt(place, Aim::Edge);
  if (reached.from < pressed_.from) {
    view_.Select(pressed_.to, reached.from);
  } else {
    view_.Select(pressed_.from, reached.to);
  }
}

void CaretMover::TextChanged(const MessageView::Change& change) {
  using What = MessageView::Change::What;
  if (change.what == What::Inserted || change.what == What::Cleared) {
    column_ = -1;
  }
}

std::size_t CaretMover::Target(Motion motion, bool extend) const {
  const ColouredText& text = view_.text();
  const TextRows& rows = position_.rows();
  const std::size_t caret = view_.caret();
  const TextRange selection = view_.selection();
  const bool collapse = !extend && !selection.empty();
  switch (motion) {
    case Motion::Left:
      return collapse ? selection.from : PreviousCaretPosition(text, caret);
    case Motion::Right:
      return collapse ? selection.to : NextCaretPosition(text, caret);
    case Motion::Up:
      return RowsFromCaret(-1);
    case Motion::Down:
      return RowsFromCaret(1);
    case Motion::PageUp:
      return RowsFromCaret(-position_.page());
    case Motion::PageDown:
      return RowsFromCaret(position_.page());
    case Motion::WordLeft:
      return PreviousWord(text, caret);
    case Motion::WordRight:
      return NextWord(text, caret);
    case Motion::RowStart:
      return rows.StartOf(caret);
    case Motion::RowEnd:
      return rows.OffsetInRow(rows.StartOf(caret), std::numeric_limits<float>::infinity(),
                              Aim::Caret);
    case Motion::Start:
      return 0;
    case Motion::End:
      break;
  }
  return view_.size();
}

/// The position that many rows below the caret, or above if negative, nearest to the column.
std::size_t CaretMover::RowsFromCaret(int count) const {
  const TextRows& rows = position_.rows();
  const std::size_t row = rows.StartOf(view_.caret());
  const std::size_t target = count < 0 ? rows.Up(row, static_cast<std::size_t>(-count))
                                       : rows.Down(row, static_cast<std::size_t>(count));
  return rows.OffsetInRow(target, column_, Aim::Caret);
}

TextRange CaretMover::UnitAt(ScreenPosition place, Aim character_aim) const {
  const Aim aim = unit_ == Unit::Character ? character_aim : Aim::Byte;
  const std::size_t offset = position_.OffsetAt(place, aim);
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

}  // namespace korvanta

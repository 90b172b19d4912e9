/// Moves the message view's caret by keys and mouse. The view's widget converts its events to these
/// calls.
#pragma once

#include "lobby/message_view.h"
#include "lobby/scroll_position.h"

namespace korvanta {

class CaretMover {
 public:
  /// Moves by key. Those to other rows stay as close as possible to the column in which they began.
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

  /// The unit in which a press and a drag select.
  enum class Unit { Character, Word, Line };

  /// Both must outlive it.
  CaretMover(MessageView& view, ScrollPosition& position) : view_(view), position_(position) {}

  /// Moves the caret and scrolls it into view. With `extend` the selection is extended to it.
  void Move(Motion motion, bool extend);

  /// The mouse was pressed: selects the unit at `place`, or moves the caret there if the unit is a
  /// character. With `extend`, pressing a character extends the selection to it instead.
  void Press(ScreenPosition place, Unit unit, bool extend);

  /// The mouse was dragged: selects from the unit pressed to the unit at `place`.
  void DragTo(ScreenPosition place);

  /// To be called with every change of the view.
  void TextChanged(const MessageView::Change& change);

 private:
  std::size_t Target(Motion motion, bool extend) const;
  std::size_t RowsFromCaret(int count) const;
  TextRange UnitAt(ScreenPosition place, Aim character_aim) const;

  MessageView& view_;
  ScrollPosition& position_;
  float column_ = -1;  // target of moves between rows; negative after any other move
  Unit unit_ = Unit::Character;
  TextRange pressed_{0, 0};  // the unit with which the drag began
};

}  // namespace korvanta

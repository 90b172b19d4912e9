/// How the user moves the caret of the message view by keys and by mouse. The view's widget
/// converts its events to calls of this.
#pragma once

#include "lobby/message_view.h"
#include "lobby/scroll_position.h"

namespace korvanta {

class CaretMover {
 public:
  /// By keys. The row above and below, and a page of rows, are reached as near as possible to the
  /// column where such moves began.
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

  /// What a press and a drag select in whole.
  enum class Unit { Character, Word, Line };

  /// Both outlive this.
  CaretMover(MessageView& view, ScrollPosition& position) : view_(view), position_(position) {}

  /// The caret comes into sight. With `extend` the selection reaches to it from where it began.
  void Move(Motion motion, bool extend);

  /// The mouse button goes down: selects the unit there, or moves the caret if that is a character.
  /// `extend` makes a character's press a drag from where the selection began.
  void Press(ScreenPlace place, Unit unit, bool extend);

  /// The mouse has come to `place`: the selection reaches from the unit pressed to the unit there.
  void DragTo(ScreenPlace place);

  /// Call it with each change of the view.
  void TextChanged(const MessageView::Change& change);

 private:
  std::size_t Target(Motion motion, bool extend) const;
  std::size_t RowsFromCaret(int count) const;
  TextRange UnitAt(ScreenPlace place, Aim character_aim) const;

  MessageView& view_;
  ScrollPosition& position_;
  float column_ = -1;  // where moves between rows aim; negative when the caret moved otherwise
  Unit unit_ = Unit::Character;
  TextRange pressed_{0, 0};  // the unit with which the drag began
};

}  // namespace korvanta

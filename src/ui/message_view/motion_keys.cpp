#include "ui/message_view/motion_keys.h"

#include <QKeyEvent>

namespace korvanta {
namespace {

using Motion = CaretMover::Motion;

struct Keys {
  Motion motion;
  QKeySequence::StandardKey move;
  QKeySequence::StandardKey select;
};

constexpr Keys kKeys[] = {
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
};

}  // namespace

std::optional<KeyMotion> MotionOf(const QKeyEvent& event) {
  for (const auto& [motion, move, select] : kKeys) {
    if (const bool extend = event.matches(select); extend || event.matches(move)) {
      return KeyMotion{motion, extend};
    }
  }
  return std::nullopt;
}

}  // namespace korvanta

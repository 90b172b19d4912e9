/// The desktop's keys for moving the caret in a text.
#pragma once

#include <optional>

#include "lobby/caret_mover.h"

class QKeyEvent;

namespace korvanta {

struct KeyMotion {
  CaretMover::Motion motion;
  bool extend;
};

/// None when the key is for something else.
std::optional<KeyMotion> MotionOf(const QKeyEvent& event);

}  // namespace korvanta

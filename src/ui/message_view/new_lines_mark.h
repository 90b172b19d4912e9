/// The button in the message view that says how many lines came in out of sight, and where.
#pragma once

#include <QToolButton>

#include "lobby/unseen_lines.h"

namespace korvanta {

class NewLinesMark : public QToolButton {
 public:
  explicit NewLinesMark(QWidget* viewport);

  /// At the upper or the lower edge of the viewport; hidden while there are no such lines.
  void Show(const UnseenLines& unseen, bool above);
};

}  // namespace korvanta

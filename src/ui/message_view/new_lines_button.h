/// The button in the message view that shows how many lines arrived out of view, and in which
/// direction.
#pragma once

#include <QToolButton>

#include "lobby/unseen_lines.h"

namespace korvanta {

class NewLinesButton : public QToolButton {
 public:
  explicit NewLinesButton(QWidget* viewport);

  /// At the upper or lower edge of the viewport; hidden if there are none.
  void Show(const UnseenLines& unseen, bool above);
};

}  // namespace korvanta

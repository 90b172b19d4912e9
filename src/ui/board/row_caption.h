/// A caption on the board's black background, in the colour of its row.
#pragma once

#include <QLabel>

namespace korvanta {

/// Drawn in the palette's `WindowText`. If that is too dark for the background, a thin light
/// outline makes the letters legible.
class RowCaption : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvanta

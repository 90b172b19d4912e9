/// A caption on the board's black ground, in the colour of its row.
#pragma once

#include <QLabel>

namespace korvanta {

/// The colour is that of the palette's `WindowText`. Where it alone is too dark for the ground, a
/// thin light edge around the letters makes them legible.
class RowCaption : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvanta

/// The boxes, frames and lines of the board as named objects.
#pragma once

#include <QObject>
#include <QRect>

namespace korvanta {

class BoardWidget;

/// The board draws all its elements itself. Each is also an object, so that assistive technology
/// and inspection tools can find it by name: box "Pop(2)" inside frame "PopBord(2)", "PLine(2)"
/// from there to the next frame, "GoldKnow" inside "Shape1".
class BoardElement : public QObject {
  Q_OBJECT

 public:
  enum class Kind { Box, Frame, Line };

  /// `box` is numbered as in board_layout.h; a frame has the number of the box inside it, a line
  /// that of the box it starts from.
  BoardElement(Kind kind, int box, BoardWidget& board);

  Kind kind() const { return kind_; }
  int box() const { return box_; }
  BoardWidget& board() const;
  /// Within the board; for a bent line its bounding rectangle.
  QRect rect() const;

 private:
  Kind kind_;
  int box_;
};

}  // namespace korvanta

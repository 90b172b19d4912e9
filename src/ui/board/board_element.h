/// The boxes, frames and lines of the board under the names that the system has for them.
#pragma once

#include <QObject>
#include <QRect>

namespace korvanta {

class BoardWidget;

/// The board draws all of its elements itself. Each is an object of its own so that assistive
/// programs, and whoever looks into the running program, find it by its name: box "Pop(2)" inside
/// frame "PopBord(2)", "PLine(2)" from there to the next frame, "GoldKnow" inside "Shape1".
class BoardElement : public QObject {
  Q_OBJECT

 public:
  enum class Kind { Box, Frame, Line };

  /// `box` counts as in board_layout.h: a frame like the box inside it, a line like the box that it
  /// starts from.
  BoardElement(Kind kind, int box, BoardWidget& board);

  Kind kind() const { return kind_; }
  int box() const { return box_; }
  BoardWidget& board() const;
  /// Within the board; of a bent line the rectangle around it.
  QRect place() const;

 private:
  Kind kind_;
  int box_;
};

}  // namespace korvanta

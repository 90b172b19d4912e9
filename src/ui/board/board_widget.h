/// The research board on the screen: drawn from the model, its boxes within reach of mouse,
/// keyboard and screen readers. The main window owns one.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>

#include "board/research_board.h"
#include "ui/board/board_painter.h"

class QLabel;

namespace korvanta {

class BoardWidget : public QWidget {
 public:
  /// Takes over the board's `on_changed`; the board outlives the widget. The size is fixed.
  BoardWidget(ResearchBoard& board, QWidget* parent);
  ~BoardWidget() override;

  /// The right mouse button was released over a box, or its menu was asked for with the keyboard.
  /// The Golden Knowledge has topic 5 and level 5. The position is one of the screen.
  std::function<void(TopicCode topic, std::int16_t level, QPoint global_pos)> on_box_menu;

  /// The keyboard is at another box, whose middle this is.
  std::function<void(QPoint middle)> on_current_box;

  /// Boxes count as in board_layout.h.
  int current_box() const { return current_; }
  void SetCurrentBox(int box);
  void OpenBoxMenu(int box, QPoint global_pos) const;
  bool IsReached(int box) const;
  /// What a box is, in words: "Military, level 2, reached".
  QString BoxText(int box) const;
  /// The box at a position of this widget, or -1.
  static int BoxUnder(QPoint position);
  /// Tells screen magnifiers, and the area that scrolls, where the keyboard is.
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Refresh(BoardPart part);
  void SetHovered(int box);
  int Neighbour(int key) const;
  /// Rendered once for each device pixel ratio.
  const BoardPictures& Pictures();

  QLabel* Research = nullptr;
  QLabel* TickTime = nullptr;
  ResearchBoard& board_;
  int current_ = 0;
  int hovered_ = -1;
  std::size_t last_row_ = 0;  ///< the row that the way back from the Golden Knowledge leads to
  BoardPictures pictures_;
};

}  // namespace korvanta

/// The widget of the research board: drawn from the model, its boxes operated by mouse, keyboard
/// and screen readers.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>

#include "board/research_board.h"
#include "ui/board/board_element.h"
#include "ui/board/board_painter.h"
#include "ui/kit/popup_menu.h"

class QLabel;

namespace korvanta {

class BoardWidget : public QWidget {
 public:
  /// Takes over the board's `on_changed`; the board must outlive the widget. The size is fixed.
  BoardWidget(ResearchBoard& board, QWidget* parent);
  ~BoardWidget() override;

  /// The right mouse button was released over a box, or the keyboard requested its menu. The Golden
  /// Knowledge has topic 5 and level 5.
  std::function<void(TopicCode topic, std::int16_t level, QPoint global_pos, OpenedBy opened_by)>
      on_box_menu;

  /// The keyboard moved to another box, whose centre this is.
  std::function<void(QPoint middle)> on_current_box;

  /// Boxes are numbered as in board_layout.h.
  int current_box() const { return current_; }
  void SetCurrentBox(int box);
  void OpenBoxMenu(int box, QPoint global_pos, OpenedBy opened_by) const;
  bool IsReached(int box) const;
  /// The description of a box: "Military, level 2, reached".
  QString BoxText(int box) const;
  /// What can be done with any box.
  static QString BoxHint();
  /// The box at a position of this widget, or -1.
  static int BoxUnder(QPoint position);
  /// A line has the number of the box it starts from.
  BoardElement* Element(BoardElement::Kind kind, int box) const;
  /// The current box, for screen magnifiers and the surrounding scroll area.
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Refresh(BoardPart part);
  int Neighbour(int key) const;
  /// Rendered once for each device pixel ratio.
  const BoardPictures& Pictures();

  QLabel* Research = nullptr;
  QLabel* TickTime = nullptr;
  ResearchBoard& board_;
  QList<BoardElement*> elements_;  ///< boxes, frames, lines
  int current_ = 0;
  std::size_t last_row_ = 0;  ///< the row to return to from the Golden Knowledge
  BoardPictures pictures_;
};

}  // namespace korvanta

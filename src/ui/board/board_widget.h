/// The research board on the screen: drawn from the model, its boxes operated by mouse, keyboard
/// and screen readers. The main window owns one.
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
  /// Takes over the board's `on_changed`; the board outlives the widget. The size is fixed.
  BoardWidget(ResearchBoard& board, QWidget* parent);
  ~BoardWidget() override;

  /// The right mouse button was released over a box, or the keyboard asked for its menu. The
  /// Golden Knowledge has topic 5 and level 5. The position is one of the screen.
  std::function<void(TopicCode topic, std::int16_t level, QPoint global_pos, OpenedBy opened_by)>
      on_box_menu;

  /// The keyboard went to another box, whose middle this is.
  std::function<void(QPoint middle)> on_current_box;

  /// Boxes count as in board_layout.h.
  int current_box() const { return current_; }
  void SetCurrentBox(int box);
  void OpenBoxMenu(int box, QPoint global_pos, OpenedBy opened_by) const;
  bool IsReached(int box) const;
  /// What a box is, in words: "Military, level 2, reached".
  QString BoxText(int box) const;
  /// What can be done with any box.
  static QString BoxHint();
  /// The box at a position of this widget, or -1.
  static int BoxUnder(QPoint position);
  /// Lines count like the boxes that they start from.
  BoardElement* Element(BoardElement::Kind kind, int box) const;
  /// Tells screen magnifiers, and the area that scrolls, where the keyboard is.
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
  std::size_t last_row_ = 0;  ///< the row that the way back from the Golden Knowledge leads to
  BoardPictures pictures_;
};

}  // namespace korvanta

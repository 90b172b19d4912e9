/// The message view on the screen: draws the lines straight from the model and hands the user's
/// caret and selection to it. Read-only.
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QPoint>
#include <QTimer>

#include "lobby/message_view.h"
#include "ui/message_canvas.h"

namespace korvanta {

class MessageViewWidget : public QAbstractScrollArea {
 public:
  /// Becomes the listener of `view`, which outlives it.
  explicit MessageViewWidget(MessageView& view, QWidget* parent = nullptr);
  MessageViewWidget(const MessageViewWidget&) = delete;
  MessageViewWidget& operator=(const MessageViewWidget&) = delete;
  ~MessageViewWidget() override;

  /// Offset of the first row seen.
  std::size_t top() const { return top_; }

  /// Puts the selected text on the clipboard; without a selection nothing happens.
  void Copy() const;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// What a drag selects in whole.
  enum class Unit { Character, Word, Line };

  void OnChanged(const MessageView::Change& change);
  void ScheduleFrame();
  void Settle();
  void SettleChanges();
  void ShowTop();
  void ScrollTo(std::size_t top);
  void ScrollRows(int rows);
  void OnScrollAction(int action);
  void MoveCaret(std::size_t offset, bool extend);
  bool MoveByKey(QKeyEvent* event);
  std::size_t RowsFromCaret(int rows);
  void PressAt(QPoint point, Unit unit, bool extend);
  void DragTo(QPoint point);
  TextRange UnitAt(QPoint point, MessageCanvas::Aim character_aim) const;
  void OpenMenuAtCaret();
  void OpenMenu(QPoint global_position);

  MessageView& view_;
  MessageCanvas canvas_;

  std::size_t top_ = 0;        // start of the first row seen
  std::size_t anchor_ = 0;     // the byte that resizing keeps in that row
  std::size_t last_top_ = 0;   // the top with the end in sight, as of the last settling
  bool follow_ = false;        // the end comes into sight at the next frame
  bool wrap_changed_ = false;  // rows may start elsewhere
  bool end_changed_ = true;    // last_top_ is out of date

  QTimer frame_timer_{this};
  QElapsedTimer last_frame_;

  float column_ = -1;  // where Up and Down aim; negative when the caret moved otherwise
  float wheel_rows_ = 0;
  Unit unit_ = Unit::Character;
  TextRange origin_{0, 0};  // what the drag began with
  QPoint pointer_;
  QTimer drag_timer_;  // scrolls while the pointer is held beyond an edge
  QElapsedTimer last_double_click_;
};

}  // namespace korvanta

/// The message view on the screen: draws the lines straight from the model and hands the user's
/// caret and selection to it. Read-only.
#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QPoint>
#include <QPointer>
#include <QTimer>

#include "lobby/message_search.h"
#include "lobby/message_view.h"
#include "lobby/unseen_lines.h"
#include "ui/message_view/message_canvas.h"

class QAction;
class QToolButton;

namespace korvanta {

class FindBar;

class MessageViewWidget : public QAbstractScrollArea {
 public:
  /// Becomes the listener of `view`, which outlives it.
  explicit MessageViewWidget(MessageView& view, QWidget* parent = nullptr);
  MessageViewWidget(const MessageViewWidget&) = delete;
  MessageViewWidget& operator=(const MessageViewWidget&) = delete;
  ~MessageViewWidget() override;

  /// Offset of the first row seen.
  std::size_t top() const { return top_; }

  MessageView& model() const { return view_; }
  const MessageCanvas& canvas() const { return canvas_; }
  const MessageSearch& search() const { return search_; }

  /// Scrolls as little as brings the row of `offset` into sight; no caret moves.
  void ShowOffset(std::size_t offset);

  /// Size of the letters in percent of the font's.
  int zoom() const;

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

  bool IsAtEnd() const;
  bool IsEndLookedAt() const;
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

  // message_view_tools.cpp
  void MakeActions();
  void Zoom(int steps);
  void ZoomTo(std::size_t level);
  void ApplyFont();
  void OpenFind();
  void CloseFind();
  void FindNext(MessageSearch::Direction direction);
  void ShowOutcome(MessageSearch::Outcome outcome);
  bool IsFindOpen() const;
  void ShowNewLines();
  void RefreshNewLines();
  void PlaceTools();

  MessageView& view_;
  MessageCanvas canvas_;
  MessageSearch search_{view_};
  UnseenLines unseen_;

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

  std::size_t zoom_level_;
  int zoom_wheel_ = 0;  // turned so far towards the next step
  QAction* mnuNewLines = nullptr;
  FindBar* find_bar_ = nullptr;        // made when it is first wanted
  QToolButton* btnNewLines = nullptr;  // likewise
  QPointer<QWidget> focus_before_find_;
};

}  // namespace korvanta

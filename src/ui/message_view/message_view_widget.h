/// The widget of the message view: converts input events, and draws the text straight from the
/// model. Read-only.
#pragma once

#include <QAbstractScrollArea>

#include "lobby/caret_mover.h"
#include "lobby/message_view.h"
#include "lobby/scroll_position.h"
#include "ui/message_view/finder.h"
#include "ui/message_view/frame_pacer.h"
#include "ui/message_view/message_canvas.h"
#include "ui/message_view/mouse_selection.h"
#include "ui/message_view/text_zoom.h"

class QAction;

namespace korvanta {

class NewLinesButton;

class MessageViewWidget : public QAbstractScrollArea {
 public:
  /// Becomes the listener of `view`, which must outlive it.
  explicit MessageViewWidget(MessageView& view, QWidget* parent = nullptr);
  MessageViewWidget(const MessageViewWidget&) = delete;
  MessageViewWidget& operator=(const MessageViewWidget&) = delete;
  ~MessageViewWidget() override;

  MessageView& model() const { return view_; }
  ScrollPosition& position() { return position_; }
  const MessageCanvas& canvas() const { return canvas_; }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void MakeActions();
  void TextChanged(const MessageView::Change& change);
  void ShowPosition();
  void OnScrollAction(int action);
  void SetZoom(TextZoom zoom);
  void ApplyFont();
  void OpenMenuAtCaret();

  MessageView& view_;
  MessageCanvas canvas_;
  ScrollPosition position_{view_, canvas_.rows()};
  CaretMover caret_{view_, position_};
  Finder finder_{view_, position_, *this};
  FramePacer frames_;
  MouseSelection mouse_{*viewport(), canvas_, position_, caret_};
  TextZoom zoom_;

  // Wheel movement accumulated towards the next zoom step and the next row.
  int zoom_wheel_ = 0;
  float wheel_rows_ = 0;

  QAction* mnuNewLines = nullptr;
  NewLinesButton* btnNewLines = nullptr;  // created when first needed
};

}  // namespace korvanta

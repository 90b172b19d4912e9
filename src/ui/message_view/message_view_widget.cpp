#include "ui/message_view/message_view_widget.h"

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "ui/kit/theme.h"
#include "ui/message_view/message_view_accessible.h"

namespace korvanta {
namespace {

constexpr int kFrameMilliseconds = 16;

/// Bytes of text that one step of the scroll bar stands for: 1 until the text outgrows an int.
std::size_t BytesPerStep(std::size_t size) {
  return size / static_cast<std::size_t>(std::numeric_limits<int>::max()) + 1;
}

}  // namespace

MessageViewWidget::MessageViewWidget(MessageView& view, QWidget* parent)
    : QAbstractScrollArea(parent), view_(view), canvas_(view, font()) {
  InstallMessageViewAccessibility();
  setObjectName(QStringLiteral("rbMessages"));
  setAccessibleName(QStringLiteral("Messages"));
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  viewport()->setCursor(Qt::IBeamCursor);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll messages"));
  verticalScrollBar()->installEventFilter(this);
  connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
          &MessageViewWidget::OnScrollAction);

  frame_timer_.setObjectName(QStringLiteral("frame"));
  frame_timer_.setSingleShot(true);
  frame_timer_.setTimerType(Qt::PreciseTimer);
  connect(&frame_timer_, &QTimer::timeout, this, [this] {
    last_frame_.restart();
    Settle();
    viewport()->update();
  });
  connect(&drag_timer_, &QTimer::timeout, this, [this] { DragTo(pointer_); });
  view_.on_changed = [this](const MessageView::Change& change) { OnChanged(change); };
  follow_ = IsAtEnd();
  MakeActions();
}

MessageViewWidget::~MessageViewWidget() { view_.on_changed = nullptr; }

void MessageViewWidget::OnChanged(const MessageView::Change& change) {
  using What = MessageView::Change::What;
  if (change.what == What::Cleared) {
    top_ = anchor_ = 0;
  } else if (change.what == What::Inserted) {
    if (!view_.IsScrollLocked()) {
      follow_ = IsAtEnd();
    }
    // Text that comes in above, or right at the top, pushes nothing that is seen away; the first
    // text of an empty view is seen.
    if (change.offset <= top_ && change.offset + change.length < view_.size()) {
      top_ += change.length;
      wrap_changed_ = true;
      anchor_ = top_;
    } else if (change.offset <= anchor_) {
      anchor_ = top_;
    }
  }
  if (change.what == What::Inserted || change.what == What::Cleared) {
    column_ = -1;
  }
  end_changed_ = end_changed_ || change.what != What::Selection;
  search_.TextChanged(change);
  unseen_.TextChanged(change, view_.IsScrollLocked());
  TellAccessibility(*this, change);
  ScheduleFrame();
}

/// Whether the next line goes in at the end and is to be seen there.
bool MessageViewWidget::IsAtEnd() const {
  return !view_.IsScrollLocked() && view_.caret() == view_.size();
}

/// Whether the end is in sight, and not only because all of the text is.
bool MessageViewWidget::IsEndLookedAt() const {
  return !end_changed_ && top_ >= last_top_ && (last_top_ > 0 || IsAtEnd());
}

/// However many changes come in, they are drawn together and at most once a frame.
void MessageViewWidget::ScheduleFrame() {
  if (isVisible() && !frame_timer_.isActive()) {
    const qint64 since = last_frame_.isValid() ? last_frame_.elapsed() : kFrameMilliseconds;
    frame_timer_.start(static_cast<int>(std::max<qint64>(0, kFrameMilliseconds - since)));
  }
}

/// Brings what is seen in line with the text, and the scroll bar with it.
void MessageViewWidget::Settle() {
  if (end_changed_) {
    last_top_ = canvas_.LastTop();
  }
  if (wrap_changed_ && !follow_) {
    top_ = canvas_.rows().StartOf(anchor_);
  }
  if (follow_ || top_ > last_top_) {
    top_ = anchor_ = last_top_;
  }
  follow_ = wrap_changed_ = end_changed_ = false;
  ShowTop();
  RefreshNewLines();
}

/// What came in since the last frame takes its effect before the user's next move takes its own.
void MessageViewWidget::SettleChanges() {
  if (end_changed_) {
    Settle();
  }
}

void MessageViewWidget::ShowTop() {
  QScrollBar* const bar = verticalScrollBar();
  const QSignalBlocker quiet(bar);
  const std::size_t step = BytesPerStep(view_.size());
  bar->setRange(0, static_cast<int>(last_top_ / step));
  bar->setEnabled(last_top_ > 0);  // always there, but no thumb to see when all of the text is
  bar->setPageStep(std::max(1, static_cast<int>((view_.size() - last_top_) / step)));
  if (!bar->isSliderDown() || top_ == last_top_) {
    bar->setValue(static_cast<int>(top_ / step));
  }
}

void MessageViewWidget::ScrollTo(std::size_t top) {
  follow_ = false;
  wrap_changed_ = false;
  top_ = anchor_ = top;
  Settle();
  viewport()->update();
}

void MessageViewWidget::ShowOffset(std::size_t offset) {
  SettleChanges();
  ScrollTo(canvas_.TopShowing(offset, top_));
}

void MessageViewWidget::ScrollRows(int rows) {
  SettleChanges();
  const TextRows& text_rows = canvas_.rows();
  ScrollTo(rows < 0 ? text_rows.Up(top_, static_cast<std::size_t>(-rows))
                    : text_rows.Down(top_, static_cast<std::size_t>(rows)));
}

/// Steps of the bar are rows and pages of rows; it takes the new position from here.
void MessageViewWidget::OnScrollAction(int action) {
  const int page = static_cast<int>(std::max<std::size_t>(2, canvas_.WholeRows())) - 1;
  switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
      ScrollRows(1);
      break;
    case QAbstractSlider::SliderSingleStepSub:
      ScrollRows(-1);
      break;
    case QAbstractSlider::SliderPageStepAdd:
      ScrollRows(page);
      break;
    case QAbstractSlider::SliderPageStepSub:
      ScrollRows(-page);
      break;
    case QAbstractSlider::SliderToMinimum:
      ScrollTo(0);
      break;
    case QAbstractSlider::SliderToMaximum:
      ScrollTo(view_.size());
      break;
    default:
      return;  // the thumb is being dragged
  }
  verticalScrollBar()->setSliderPosition(verticalScrollBar()->value());
}

/// Reached only by the thumb: every other way sets the bar quietly.
void MessageViewWidget::scrollContentsBy(int /*dx*/, int /*dy*/) {
  const QScrollBar* const bar = verticalScrollBar();
  const auto offset = static_cast<std::size_t>(bar->value()) * BytesPerStep(view_.size());
  ScrollTo(bar->value() == bar->maximum() ? last_top_
                                          : canvas_.rows().StartOf(std::min(offset, view_.size())));
}

/// The wheel over the scroll bar turns rows like anywhere else, not bytes.
bool MessageViewWidget::eventFilter(QObject* watched, QEvent* event) {
  if (watched == verticalScrollBar() && event->type() == QEvent::Wheel) {
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
  }
  return QAbstractScrollArea::eventFilter(watched, event);
}

void MessageViewWidget::wheelEvent(QWheelEvent* event) {
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    zoom_wheel_ += event->angleDelta().y();
    Zoom(zoom_wheel_ / QWheelEvent::DefaultDeltasPerStep);
    zoom_wheel_ %= QWheelEvent::DefaultDeltasPerStep;
    event->accept();
    return;
  }
  // Touch pads send many small steps; what is less than a row is kept for the next one.
  const bool pixels = event->hasPixelDelta() && event->phase() != Qt::NoScrollPhase;
  wheel_rows_ +=
      pixels
          ? static_cast<float>(event->pixelDelta().y()) / static_cast<float>(canvas_.row_height())
          : static_cast<float>(event->angleDelta().y() * QApplication::wheelScrollLines()) /
                static_cast<float>(QWheelEvent::DefaultDeltasPerStep);
  const int whole = static_cast<int>(wheel_rows_);
  wheel_rows_ -= static_cast<float>(whole);
  if (whole != 0) {
    ScrollRows(-whole);
  }
  event->accept();
}

void MessageViewWidget::resizeEvent(QResizeEvent* /*event*/) {
  follow_ = follow_ || (IsEndLookedAt() && !view_.IsScrollLocked());
  wrap_changed_ = end_changed_ = true;
  canvas_.SetSize(viewport()->size());
  PlaceTools();
  Settle();
}

void MessageViewWidget::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    ApplyFont();
  }
}

void MessageViewWidget::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  Settle();
}

void MessageViewWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), theme::kPaper);
  canvas_.Paint(painter, top_, hasFocus(), search_.match());
}

void MessageViewWidget::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void MessageViewWidget::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace korvanta

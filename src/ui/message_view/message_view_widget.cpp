#include "ui/message_view/message_view_widget.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "ui/kit/theme.h"
#include "ui/message_view/message_view_accessible.h"
#include "ui/message_view/message_view_menu.h"
#include "ui/message_view/motion_keys.h"
#include "ui/message_view/new_lines_button.h"

namespace korvanta {
namespace {

/// Bytes of text per step of the scroll bar: 1 until the text outgrows an int.
std::size_t BytesPerStep(std::size_t size) {
  return size / static_cast<std::size_t>(std::numeric_limits<int>::max()) + 1;
}

}  // namespace

MessageViewWidget::MessageViewWidget(MessageView& view, QWidget* parent)
    : QAbstractScrollArea(parent),
      view_(view),
      canvas_(view, font()),
      frames_(this, [this] { position_.Settle(); }) {
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
  MakeActions();

  view_.on_changed = [this](const MessageView::Change& change) { TextChanged(change); };
  position_.on_changed = [this] { ShowPosition(); };
  finder_.on_changed = [this] {
    setViewportMargins(0, 0, 0, finder_.height());
    finder_.PlaceBelow(viewport()->geometry());
    viewport()->update();
  };
  mouse_.on_released = [this] { CopySelection(view_, QClipboard::Selection); };
}

MessageViewWidget::~MessageViewWidget() { view_.on_changed = nullptr; }

/// The shortcuts work in the whole window, so that nobody has to leave the chat line for them. The
/// main menu uses Ctrl+F and F3 itself.
void MessageViewWidget::MakeActions() {
  using Direction = MessageSearch::Direction;
  struct Entry {
    const char* name;
    const char* caption;
    const char* keys;
    std::function<void()> act;
  };
  const Entry entries[] = {
      {"mnuFind", "&Find", "Ctrl+Shift+F", [this] { finder_.Open(); }},
      {"mnuFindOlder", "Find &Older", "Ctrl+G", [this] { finder_.Next(Direction::Older); }},
      {"mnuFindNewer", "Find &Newer", "Ctrl+Shift+G", [this] { finder_.Next(Direction::Newer); }},
      {"mnuNewLines", "&Show New Lines", "Ctrl+J", [this] { position_.ShowUnseen(); }},
      {"mnuLarger", "&Larger Text", "Ctrl++; Ctrl+=", [this] { SetZoom(zoom_.By(1)); }},
      {"mnuSmaller", "S&maller Text", "Ctrl+-", [this] { SetZoom(zoom_.By(-1)); }},
      {"mnuNormalSize", "Normal Si&ze", "Ctrl+0", [this] { SetZoom({}); }},
  };
  for (const auto& [name, caption, keys, act] : entries) {
    auto* action = new QAction(QLatin1String(caption), this);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(
        QKeySequence::listFromString(QLatin1String(keys), QKeySequence::PortableText));
    connect(action, &QAction::triggered, this, act);
    addAction(action);
  }
  mnuNewLines = findChild<QAction*>(QStringLiteral("mnuNewLines"));
  mnuNewLines->setEnabled(false);
}

/// Changes are drawn together, at most once per frame.
void MessageViewWidget::TextChanged(const MessageView::Change& change) {
  position_.TextChanged(change);
  caret_.TextChanged(change);
  finder_.TextChanged(change);
  NotifyAccessibility(*this, change);
  if (isVisible()) {
    frames_.Schedule();
  }
}

void MessageViewWidget::ShowPosition() {
  QScrollBar* const bar = verticalScrollBar();
  const QSignalBlocker quiet(bar);
  const std::size_t top = position_.top();
  const std::size_t last = position_.last_top();
  const std::size_t step = BytesPerStep(view_.size());
  bar->setRange(0, static_cast<int>(last / step));
  bar->setEnabled(last > 0);  // always visible, but without a thumb if the whole text is
  bar->setPageStep(std::max(1, static_cast<int>((view_.size() - last) / step)));
  if (!bar->isSliderDown() || top == last) {
    bar->setValue(static_cast<int>(top / step));
  }

  const UnseenLines& unseen = position_.unseen();
  mnuNewLines->setEnabled(unseen.count() > 0);
  if (btnNewLines == nullptr && unseen.count() > 0) {
    btnNewLines = new NewLinesButton(viewport());
    connect(btnNewLines, &QToolButton::clicked, mnuNewLines, &QAction::trigger);
  }
  if (btnNewLines != nullptr) {
    btnNewLines->Show(unseen, unseen.newest() < top);
  }
  viewport()->update();
}

/// The steps of the bar are rows and pages of rows; it takes its new value from here.
void MessageViewWidget::OnScrollAction(int action) {
  switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
      position_.ScrollRows(1);
      break;
    case QAbstractSlider::SliderSingleStepSub:
      position_.ScrollRows(-1);
      break;
    case QAbstractSlider::SliderPageStepAdd:
      position_.ScrollRows(position_.page());
      break;
    case QAbstractSlider::SliderPageStepSub:
      position_.ScrollRows(-position_.page());
      break;
    case QAbstractSlider::SliderToMinimum:
      position_.ScrollTo(0);
      break;
    case QAbstractSlider::SliderToMaximum:
      position_.ScrollTo(view_.size());
      break;
    default:
      return;  // the thumb is being dragged
  }
  verticalScrollBar()->setSliderPosition(verticalScrollBar()->value());
}

/// Called only for the thumb: all other code sets the bar with its signals blocked.
void MessageViewWidget::scrollContentsBy(int /*dx*/, int /*dy*/) {
  const QScrollBar* const bar = verticalScrollBar();
  const bool to_end = bar->value() == bar->maximum();
  position_.ScrollTo(to_end ? view_.size()
                            : static_cast<std::size_t>(bar->value()) * BytesPerStep(view_.size()));
}

/// Over the scroll bar, too, the wheel scrolls by rows and not by bytes.
bool MessageViewWidget::eventFilter(QObject* watched, QEvent* event) {
  if (watched == verticalScrollBar() && event->type() == QEvent::Wheel) {
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
  }
  return QAbstractScrollArea::eventFilter(watched, event);
}

void MessageViewWidget::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    zoom_wheel_ += event->angleDelta().y();
    SetZoom(zoom_.By(zoom_wheel_ / QWheelEvent::DefaultDeltasPerStep));
    zoom_wheel_ %= QWheelEvent::DefaultDeltasPerStep;
    return;
  }
  // Touch pads send many small steps; the fraction of a row is kept for the next one.
  const bool pixels = event->hasPixelDelta() && event->phase() != Qt::NoScrollPhase;
  wheel_rows_ +=
      pixels
          ? static_cast<float>(event->pixelDelta().y()) / static_cast<float>(canvas_.row_height())
          : static_cast<float>(event->angleDelta().y() * QApplication::wheelScrollLines()) /
                static_cast<float>(QWheelEvent::DefaultDeltasPerStep);
  const int whole = static_cast<int>(wheel_rows_);
  wheel_rows_ -= static_cast<float>(whole);
  if (whole != 0) {
    position_.ScrollRows(-whole);
  }
}

/// The text's keys take precedence over the same keys of the window's menus.
bool MessageViewWidget::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    auto* const key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll) ||
        MotionOf(*key)) {
      event->accept();
      return true;
    }
  } else if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    viewport()->update();  // shows or hides the caret
  }
  return QAbstractScrollArea::event(event);
}

void MessageViewWidget::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  if (event->matches(QKeySequence::Copy)) {
    CopySelection(view_, QClipboard::Clipboard);
  } else if (event->matches(QKeySequence::SelectAll)) {
    view_.SelectAll();
  } else if (event->key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier) {
    OpenMenuAtCaret();
  } else if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_Up) {
    position_.ScrollRows(-1);
  } else if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_Down) {
    position_.ScrollRows(1);
  } else if (const auto move = MotionOf(*event)) {
    caret_.Move(move->motion, move->extend);
  } else {
    event->ignore();
  }
}

void MessageViewWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) {
    OpenMenuAtCaret();
  } else {
    OpenMessageMenu(*this, view_, event->globalPos());
  }
}

void MessageViewWidget::OpenMenuAtCaret() {
  const auto caret = canvas_.CaretRect(view_.caret(), position_.top());
  const QPoint place = caret ? caret->bottomLeft() : viewport()->rect().center();
  OpenMessageMenu(*this, view_, viewport()->mapToGlobal(place));
}

void MessageViewWidget::SetZoom(TextZoom zoom) {
  if (zoom != zoom_) {
    position_.HoldEnd();
    zoom_ = zoom;
    ApplyFont();
  }
}

void MessageViewWidget::ApplyFont() {
  QFont scaled = font();
  const double factor = zoom_.percent() / 100.0;
  if (scaled.pixelSize() > 0) {
    scaled.setPixelSize(qRound(scaled.pixelSize() * factor));
  } else {
    scaled.setPointSizeF(scaled.pointSizeF() * factor);
  }
  canvas_.SetFont(scaled);
  position_.Rewrap(canvas_.WholeRows());
}

void MessageViewWidget::resizeEvent(QResizeEvent* /*event*/) {
  finder_.PlaceBelow(viewport()->geometry());
  canvas_.SetSize(viewport()->size());
  position_.Rewrap(canvas_.WholeRows());
}

void MessageViewWidget::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    ApplyFont();
  }
}

void MessageViewWidget::showEvent(QShowEvent* event) {
  QAbstractScrollArea::showEvent(event);
  position_.Settle();
}

void MessageViewWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), theme::kPaper);
  canvas_.Paint(painter, position_.top(), hasFocus(), finder_.match());
}

}  // namespace korvanta

#include "ui/windows/fitting_area.h"

#include <QApplication>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// Space that may be missing before scroll bars appear. It is within the content's margin, and
/// rounding at a fractional scale can lose that much.
constexpr int kSlack = theme::kUnit;

/// Estimated size of a window's frame, used before there is one to measure.
constexpr QSize kFrame{theme::kUnit, 5 * theme::kUnit};

void ShowBar(FittingArea& area, Qt::Orientation orientation, bool shown) {
  const auto policy = shown ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
  if (orientation == Qt::Horizontal) {
    area.setHorizontalScrollBarPolicy(policy);
  } else {
    area.setVerticalScrollBarPolicy(policy);
  }
}

}  // namespace

FittingArea::FittingArea(QWidget* content, bool stretches) {
  setObjectName(QStringLiteral("fittingArea"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  horizontalScrollBar()->setAccessibleName(QStringLiteral("Scroll window sideways"));
  verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll window"));
  for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()}) {
    bar->setObjectName(QStringLiteral("windowBar"));
  }
  setWidgetResizable(stretches);
  setWidget(content);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, QWidget* now) {
    if (now != nullptr && widget() != nullptr && widget()->isAncestorOf(now)) {
      ensureWidgetVisible(now, 2 * theme::kUnit, 2 * theme::kUnit);
    }
  });
}

QSize FittingArea::ContentSize() const {
  return widget()->sizeHint().expandedTo(widget()->minimumSize());
}

void FittingArea::FitWindow(QSize wanted) {
  wanted_ = wanted;
  window()->resize(FittingSize());
  LimitWindow();
}

QSize FittingArea::FittingSize() const {
  const QSize room = screen()->availableSize() - kFrame;
  const int bar = verticalScrollBar()->sizeHint().width();
  const QSize with_bars(wanted_.width() + (wanted_.height() > room.height() ? bar : 0),
                        wanted_.height() + (wanted_.width() > room.width() ? bar : 0));
  return with_bars.boundedTo(room);
}

void FittingArea::LimitWindow() {
  if (!widgetResizable()) {
    window()->setMinimumSize(FittingSize());
  }
}

void FittingArea::showEvent(QShowEvent* event) {
  QScrollArea::showEvent(event);
  connect(window()->windowHandle(), &QWindow::screenChanged, this, &FittingArea::LimitWindow,
          Qt::UniqueConnection);
}

void FittingArea::resizeEvent(QResizeEvent* event) {
  const QSize content = widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
  const int bar = verticalScrollBar()->sizeHint().width();
  const auto missing = [&](int room, bool other_bar, int needed) {
    return room - (other_bar ? bar : 0) < needed - kSlack;
  };
  const bool wide = missing(width(), missing(height(), false, content.height()), content.width());
  const bool tall = missing(height(), wide, content.height());
  ShowBar(*this, Qt::Horizontal, wide);
  ShowBar(*this, Qt::Vertical, tall);
  QScrollArea::resizeEvent(event);
  if (!wide) {
    horizontalScrollBar()->setRange(0, 0);
  }
  if (!tall) {
    verticalScrollBar()->setRange(0, 0);
  }
}

void FittingArea::scrollContentsBy(int dx, int dy) {
  QScrollArea::scrollContentsBy(dx, dy);
  viewport()->update();  // a moved part would not end on whole device pixels at 125 and 150 %
}

}  // namespace korvanta

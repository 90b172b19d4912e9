#include "ui/kit/caption_frame.h"

#include <QLayout>
#include <QResizeEvent>

#include "ui/kit/plain_text.h"
#include "ui/kit/theme.h"

namespace korvanta {

void CaptionFrame::SetCaption(const QString& caption) {
  if (caption == caption_) {
    return;
  }
  caption_ = caption;
  setAccessibleName(caption);
  FitTitle();
}

QSize CaptionFrame::minimumSizeHint() const {
  return layout() == nullptr ? QSize() : layout()->totalMinimumSize();
}

void CaptionFrame::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  FitTitle();
}

void CaptionFrame::FitTitle() {
  const QString line = OneLine(caption_);
  const QFontMetrics metrics = fontMetrics();
  const int room = width() - 5 * theme::kUnit;
  QString shown = metrics.elidedText(line, Qt::ElideRight, room);
  // Each '&' is doubled to be shown, and measured so.
  const auto doubled = static_cast<int>(shown.count(QLatin1Char('&')));
  const int doubled_width = doubled * metrics.horizontalAdvance(QLatin1Char('&'));
  shown = metrics.elidedText(line, Qt::ElideRight, room - doubled_width);
  setToolTip(shown == caption_ ? QString() : PlainToolTip(caption_));
  setTitle(shown.replace(QLatin1Char('&'), QLatin1String("&&")));
}

}  // namespace korvanta

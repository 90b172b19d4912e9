#include "ui/board/row_caption.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/kit/contrast.h"

namespace korvanta {
namespace {

constexpr double kLegibleContrast = 4.5;
constexpr qreal kEdgeWidth = 1.4;  ///< half of it is outside the letters

}  // namespace

void RowCaption::paintEvent(QPaintEvent* event) {
  const QColor colour = palette().color(QPalette::WindowText);
  if (Contrast(colour, Qt::black) >= kLegibleContrast) {
    QLabel::paintEvent(event);
    return;
  }
  const QFontMetrics metrics = fontMetrics();
  const int baseline = (height() - metrics.height()) / 2 + metrics.ascent();
  QPainterPath letters;
  letters.addText(0, baseline, font(), text());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor edge = colour.toHsl();
  edge.setHsl(edge.hslHue(), edge.hslSaturation(), 205);
  painter.strokePath(letters, QPen(edge, kEdgeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(letters, colour);
}

}  // namespace korvanta

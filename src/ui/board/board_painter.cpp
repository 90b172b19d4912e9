#include "ui/board/board_painter.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

#include "ui/board/board_layout.h"
#include "ui/kit/theme.h"

namespace korvanta {

using namespace board_layout;

namespace {

constexpr QColor kBoxBackground{0x0c, 0x0d, 0x11};
constexpr QColor kGoldenBackground{0x12, 0x0f, 0x04};
constexpr qreal kCornerRadius = 5;
constexpr int kRingWidth = 2;
constexpr int kGlowRadius = 150;
constexpr float kGlowStrength = 0.75F;  ///< at its middle

class Painting {
 public:
  Painting(QPaintDevice& device, const QRegion& region, const ResearchBoard& board,
           const BoardPictures& pictures, int focused_box)
      : painter_(&device),
        region_(region),
        board_(board),
        pictures_(pictures),
        focused_box_(focused_box) {
    painter_.setClipRegion(region);
    painter_.setRenderHint(QPainter::Antialiasing);
    to_device_ = painter_.deviceTransform();
  }

  void Paint() {
    painter_.fillRect(region_.boundingRect(), Qt::black);
    PaintGlow();
    for (const int width : {kPlainWidth, kReachedWidth}) {  // reached lines lie above plain ones
      for (std::size_t row = 0; row < kTopicRows; ++row) {
        for (int level = 1; level <= kTopLevel; ++level) {
          if (board_.LineWidth(row, level) == width) {
            PaintLine(row, level, width);
          }
        }
      }
    }
    for (int box = 0; box < kBoxes; ++box) {
      if (region_.intersects(BoxRect(box))) {
        PaintBox(box);
      }
    }
    if (focused_box_ >= 0) {
      const int gap = kRingReach - kRingWidth;
      const QRectF inner = Snapped(BoxRect(focused_box_)).adjusted(-gap, -gap, gap, gap);
      PaintFrame(Snapped(inner.adjusted(-kRingWidth, -kRingWidth, kRingWidth, kRingWidth)),
                 kRingWidth, kCornerRadius + kRingReach, theme::kGoldText);
    }
  }

 private:
  qreal SnapX(qreal x) const {
    return (qRound(x * to_device_.m11() + to_device_.dx()) - to_device_.dx()) / to_device_.m11();
  }
  qreal SnapY(qreal y) const {
    return (qRound(y * to_device_.m22() + to_device_.dy()) - to_device_.dy()) / to_device_.m22();
  }
  QRectF Snapped(const QRectF& rect) const {
    return {QPointF(SnapX(rect.left()), SnapY(rect.top())),
            QPointF(SnapX(rect.right()), SnapY(rect.bottom()))};
  }
  /// The nearest width of whole device pixels, at least one.
  qreal Thickness(int width) const {
    return qMax(1, qRound(width * to_device_.m22())) / to_device_.m22();
  }

  void PaintGlow() {
    const QPointF middle = QRectF(kGoldenBox).center();
    QRadialGradient glow(middle, kGlowRadius);
    constexpr int kSteps = 16;
    for (int i = 0; i <= kSteps; ++i) {
      const float at = static_cast<float>(i) / kSteps;
      QColor colour = theme::kGold;
      colour.setAlphaF(kGlowStrength * std::pow(1 - at, 2.2F));
      glow.setColorAt(at, colour);
    }
    painter_.fillRect(QRectF(middle.x() - kGlowRadius, middle.y() - kGlowRadius, 2 * kGlowRadius,
                             2 * kGlowRadius),
                      glow);
  }

  void PaintLine(std::size_t row, int level, int width) {
    const QColor colour = ToQColor(kTopics[row].colour);
    const qreal thick = Thickness(width);
    const QRect from = BoxRect(BoxAt(row, level));
    const qreal left = SnapX(from.right() + 1);
    const qreal top = SnapY(RowMiddle(row) - thick / 2);
    if (level < kTopLevel) {
      const qreal right = SnapX(BoxRect(BoxAt(row, level + 1)).left());
      painter_.fillRect(QRectF(left, top, right - left, thick), colour);
      return;
    }
    const qreal right = SnapX(kGoldenBox.left());
    const qreal start = top + thick / 2;
    const qreal end = SnapY(PortOf(row) - thick / 2) + thick / 2;
    const qreal middle = (left + right) / 2;
    QPainterPath path(QPointF(left, start));
    path.cubicTo(middle, start, middle, end, right, end);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(colour, thick, Qt::SolidLine, Qt::FlatCap));
    painter_.drawPath(path);
  }

  /// A frame of that width along the inside of `outer`.
  void PaintFrame(const QRectF& outer, int width, qreal radius, QColor colour) {
    const qreal thick = Thickness(width);
    QPainterPath path;
    path.addRoundedRect(outer, radius, radius);
    const qreal inner_radius = qMax(0.0, radius - thick);
    path.addRoundedRect(outer.adjusted(thick, thick, -thick, -thick), inner_radius, inner_radius);
    painter_.fillPath(path, colour);
  }

  void PaintBox(int box) {
    const bool golden = box == kGoldenIndex;
    const QRectF outer = Snapped(BoxRect(box));
    const std::size_t picture = golden ? kTopicRows : RowOf(box);
    const QColor colour = ToQColor(golden ? kGoldenKnowledgeColour : kTopics[picture].colour);
    const int width = golden ? kPlainWidth : board_.FrameWidth(picture, LevelOf(box));

    QPainterPath inside;
    inside.addRoundedRect(outer, kCornerRadius, kCornerRadius);
    painter_.fillPath(inside, golden ? kGoldenBackground : kBoxBackground);

    const QSizeF size = pictures_[picture].deviceIndependentSize();
    const QPointF corner = outer.center() - QPointF(size.width(), size.height()) / 2;
    painter_.drawPixmap(QPointF(SnapX(corner.x()), SnapY(corner.y())), pictures_[picture]);
    PaintFrame(outer, width, kCornerRadius, colour);
  }

  QPainter painter_;
  const QRegion& region_;
  const ResearchBoard& board_;
  const BoardPictures& pictures_;
  int focused_box_;
  QTransform to_device_;
};

}  // namespace

void PaintBoard(QPaintDevice& device, const QRegion& region, const ResearchBoard& board,
                const BoardPictures& pictures, int focused_box) {
  Painting(device, region, board, pictures, focused_box).Paint();
}

}  // namespace korvanta

#include "ui/message_view/message_canvas.h"

#include <QGlyphRun>
#include <algorithm>

#include "lobby/line_colours.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

constexpr int kMargin = theme::kUnit;
constexpr int kCaretWidth = 2;

}  // namespace

void MessageCanvas::SetFont(const QFont& font) {
  glyphs_.SetFont(font);
  rows_.AdvancesChanged();
}

void MessageCanvas::SetSize(QSize size) {
  size_ = size;
  rows_.SetWidth(static_cast<float>(size.width() - 2 * kMargin));
}

std::size_t MessageCanvas::WholeRows() const {
  return static_cast<std::size_t>(std::max(1, (size_.height() - 2 * kMargin) / row_height()));
}

ScreenPosition MessageCanvas::PositionAt(QPoint point) const {
  const int down =
      std::clamp((point.y() - kMargin) / row_height(), 0, static_cast<int>(WholeRows()));
  return {static_cast<std::size_t>(down), static_cast<float>(point.x() - kMargin)};
}

std::optional<QRect> MessageCanvas::CaretRect(std::size_t offset, std::size_t top) const {
  Row row = rows_.At(top);
  if (offset < row.start) {
    return std::nullopt;
  }
  for (int y = kMargin; y < size_.height(); y += row_height()) {
    if (offset < row.next || rows_.IsLast(row)) {
      // It may be in the margin, after a space that hangs over the edge.
      const int x =
          std::min(kMargin + qRound(WidthBetween(row.start, offset)), size_.width() - kMargin / 2);
      return QRect(x - kCaretWidth / 2, y, kCaretWidth, row_height());
    }
    row = rows_.At(row.next);
  }
  return std::nullopt;
}

std::optional<QRect> MessageCanvas::ByteRect(std::size_t offset, std::size_t top) const {
  const std::optional<QRect> caret = CaretRect(offset, top);
  if (!caret) {
    return std::nullopt;
  }
  const char byte = offset < view_.size() ? view_.text().At(offset) : ' ';
  const float width =
      glyphs_.advances()[static_cast<unsigned char>(IsLineBreak(byte) ? ' ' : byte)];
  return QRect(caret->left() + kCaretWidth / 2, caret->top(), qRound(width), caret->height());
}

void MessageCanvas::Paint(QPainter& painter, std::size_t top, bool focused, TextRange match) {
  std::size_t start = top;
  for (int y = kMargin; y < size_.height(); y += row_height()) {
    const Row row = rows_.At(start);
    PaintBackground(painter, row, y, view_.selection(), theme::kSelection);
    PaintBackground(painter, row, y, match, theme::kFound);
    PaintText(painter, row, y);
    if (rows_.IsLast(row)) {
      break;
    }
    start = row.next;
  }
  auto caret = CaretRect(view_.caret(), top);
  if (caret && view_.IsScrollLocked()) {
    painter.fillRect(*caret, theme::kInk);
  } else if (caret && focused && caret->bottom() < size_.height()) {
    // Lines are appended wherever the caret is; it only serves the keyboard.
    caret->setWidth(1);
    painter.fillRect(*caret, theme::kInk);
  }
}

void MessageCanvas::PaintBackground(QPainter& painter, const Row& row, int y, TextRange range,
                                    const QColor& colour) const {
  const std::size_t from = std::max(range.from, row.start);
  const std::size_t to = std::min(range.to, row.next);
  if (from >= to) {
    return;
  }
  const std::size_t painted_to = std::min(to, row.end);
  const float left = kMargin + WidthBetween(row.start, std::min(from, painted_to));
  float right = left + WidthBetween(std::min(from, painted_to), painted_to);
  if (to > row.end) {
    right += glyphs_.advances()[' '];  // the line break is selected too
  }
  const int x = qRound(left);
  painter.fillRect(x, y, qRound(right) - x, row_height(), colour);
}

void MessageCanvas::PaintText(QPainter& painter, const Row& row, int y) {
  view_.text().Read(row.start, row.end, excerpt_);
  float x = kMargin;
  std::size_t at = 0;
  for (const ColourRun& run : excerpt_.runs) {
    glyph_indexes_.clear();
    positions_.clear();
    for (; at < run.end; ++at) {
      const char byte = excerpt_.bytes[at];
      if (const std::uint32_t glyph = glyphs_.GlyphOf(byte); glyph != 0) {
        glyph_indexes_.push_back(glyph);
        positions_.emplace_back(x, y + glyphs_.ascent());
      }
      x += glyphs_.advances()[static_cast<unsigned char>(byte)];
    }
    if (glyph_indexes_.empty()) {
      continue;
    }
    QGlyphRun glyphs;
    glyphs.setRawFont(glyphs_.font());
    glyphs.setRawData(glyph_indexes_.data(), positions_.data(),
                      static_cast<int>(glyph_indexes_.size()));
    painter.setPen(ToQColor(ColourOf(run.role)));
    painter.drawGlyphRun(QPointF(0, 0), glyphs);
  }
}

/// Both offsets lie in one row.
float MessageCanvas::WidthBetween(std::size_t from, std::size_t to) const {
  return WidthOf(view_.text().Bytes(from, to), glyphs_.advances());
}

}  // namespace korvanta

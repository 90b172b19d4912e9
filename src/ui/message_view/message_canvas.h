/// Lays out and paints the message view's text in its viewport. `top` is the offset of the first
/// visible row, always the start of a row; positions are in logical pixels of the viewport.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

#include "lobby/line_layout.h"
#include "lobby/message_view.h"
#include "lobby/scroll_position.h"
#include "ui/message_view/glyph_table.h"

namespace korvanta {

class MessageCanvas {
 public:
  MessageCanvas(const MessageView& view, const QFont& font)
      : view_(view), glyphs_(font), rows_(view.text(), glyphs_.advances()) {}

  void SetFont(const QFont& font);
  void SetSize(QSize size);

  const TextRows& rows() const { return rows_; }
  int row_height() const { return glyphs_.row_height(); }

  /// Number of fully visible rows; at least 1.
  std::size_t WholeRows() const;

  /// Limited to the visible rows.
  ScreenPosition PositionAt(QPoint point) const;

  /// The caret at `offset`; none if its row is not visible.
  std::optional<QRect> CaretRect(std::size_t offset, std::size_t top) const;

  /// The byte at `offset`; none if its row is not visible. A line break has the width of a space.
  std::optional<QRect> ByteRect(std::size_t offset, std::size_t top) const;

  /// `match` is the match of the search, perhaps empty.
  void Paint(QPainter& painter, std::size_t top, bool focused, TextRange match = {0, 0});

 private:
  void PaintBackground(QPainter& painter, const Row& row, int y, TextRange range,
                       const QColor& colour) const;
  void PaintText(QPainter& painter, const Row& row, int y);
  float WidthBetween(std::size_t from, std::size_t to) const;

  const MessageView& view_;
  GlyphTable glyphs_;
  TextRows rows_;
  QSize size_;

  // Kept between paints to reuse their memory.
  Excerpt excerpt_;
  std::vector<quint32> glyph_indexes_;
  std::vector<QPointF> positions_;
};

}  // namespace korvanta

/// A font's glyph and advance for each of the 256 byte values, by which the message view measures
/// and paints.
#pragma once

#include <QFont>
#include <QRawFont>
#include <array>
#include <cstdint>

#include "lobby/line_layout.h"

namespace korvanta {

class GlyphTable {
 public:
  explicit GlyphTable(const QFont& font) { SetFont(font); }

  /// Control characters and characters that the font lacks get a visible substitute; a tab is four
  /// spaces wide.
  void SetFont(const QFont& font);

  const QRawFont& font() const { return font_; }
  const Advances& advances() const { return advances_; }

  /// 0 if nothing is painted.
  std::uint32_t GlyphOf(char byte) const { return glyphs_[static_cast<unsigned char>(byte)]; }

  /// From the top of a row to its baseline, and to the next row, in whole logical pixels.
  int ascent() const { return ascent_; }
  int row_height() const { return row_height_; }

 private:
  QRawFont font_;
  std::array<std::uint32_t, 256> glyphs_{};
  Advances advances_{};
  int ascent_ = 0;
  int row_height_ = 0;
};

}  // namespace korvanta

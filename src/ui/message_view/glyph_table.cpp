#include "ui/message_view/glyph_table.h"

#include <algorithm>
#include <cmath>

#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr int kRowGap = 3;  // logical pixels between rows, beyond the font's height
constexpr int kTabSpaces = 4;

std::uint32_t GlyphIn(const QRawFont& font, QChar character) {
  const QList<quint32> glyphs = font.glyphIndexesForString(QString(character));
  return glyphs.isEmpty() ? 0 : glyphs.front();
}

float AdvanceIn(const QRawFont& font, std::uint32_t glyph) {
  const QList<QPointF> advances = font.advancesForGlyphIndexes({glyph});
  return advances.isEmpty() ? 0.0F : static_cast<float>(advances.front().x());
}

/// The first that the font has of: a white square, the replacement character, a question mark.
std::uint32_t Substitute(const QRawFont& font) {
  for (const char16_t candidate : {u'\u25A1', u'\uFFFD', u'?'}) {
    if (const std::uint32_t glyph = GlyphIn(font, QChar(candidate)); glyph != 0) {
      return glyph;
    }
  }
  return 0;
}

}  // namespace

void GlyphTable::SetFont(const QFont& font) {
  font_ = QRawFont::fromFont(font);
  const std::uint32_t substitute = Substitute(font_);
  for (std::size_t byte = 0; byte < glyphs_.size(); ++byte) {
    const QChar character = ToQChar(static_cast<unsigned char>(byte));
    const bool visible = character.isPrint() || character.isSpace();
    const std::uint32_t glyph = visible ? GlyphIn(font_, character) : 0;
    glyphs_[byte] = glyph == 0 ? substitute : glyph;
    advances_[byte] = std::max(1.0F, AdvanceIn(font_, glyphs_[byte]));
  }
  const std::uint32_t space = GlyphIn(font_, QChar(u' '));
  glyphs_[' '] = glyphs_['\t'] = glyphs_[0xA0] = 0;
  advances_[' '] = advances_[0xA0] = std::max(1.0F, AdvanceIn(font_, space));
  advances_['\t'] = kTabSpaces * advances_[' '];

  ascent_ = static_cast<int>(std::ceil(font_.ascent())) + kRowGap / 2;
  row_height_ = ascent_ + static_cast<int>(std::ceil(font_.descent())) + kRowGap - kRowGap / 2;
}

}  // namespace korvanta

#include "ui/kit/text.h"

#include <algorithm>
#include <array>

namespace korvanta {
namespace {

/// Characters of the bytes 0x80 to 0x9F; all other bytes are the code points of the same value.
constexpr std::array<char16_t, 32> kHighCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char ToByte(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto at = std::find(kHighCharacters.begin(), kHighCharacters.end(), character);
  return at == kHighCharacters.end() ? '?'
                                     : static_cast<char>(0x80 + (at - kHighCharacters.begin()));
}

}  // namespace

QChar ToQChar(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? QChar(kHighCharacters[byte - 0x80]) : QChar(char16_t{byte});
}

QString ToQString(std::string_view bytes) {
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return ToQChar(static_cast<unsigned char>(byte)); });
  return text;
}

std::string ToBytes(const QString& text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const char32_t character : text.toUcs4()) {
    bytes += ToByte(character);
  }
  return bytes;
}

}  // namespace korvanta

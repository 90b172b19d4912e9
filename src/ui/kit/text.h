/// Conversion between the client's bytes (Windows-1252, one a character) and the toolkit's text.
#pragma once

#include <QList>
#include <QString>
#include <string>
#include <string_view>

namespace korvanta {

/// Every byte value has a character of its own: the five that Windows-1252 leaves open become the
/// control characters of the same code, so the way back is exact.
QString ToQString(std::string_view bytes);

/// A character that the set lacks becomes '?'.
std::string ToBytes(const QString& text);

/// The character that one byte stands for.
QChar ToQChar(unsigned char byte);

}  // namespace korvanta

/// Conversion between the client's bytes (Windows-1252, one per character) and the toolkit's text.
#pragma once

#include <QList>
#include <QString>
#include <string>
#include <string_view>

namespace korvanta {

/// Maps every byte to a different character: the five values that Windows-1252 leaves undefined
/// become the control characters of the same code. `ToBytes` is its exact inverse.
QString ToQString(std::string_view bytes);

/// A character that Windows-1252 lacks becomes '?'.
std::string ToBytes(const QString& text);

/// The character that one byte stands for.
QChar ToQChar(unsigned char byte);

}  // namespace korvanta

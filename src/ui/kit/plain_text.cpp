#include "ui/kit/plain_text.h"

#include <algorithm>

namespace korvanta {
namespace {

constexpr qsizetype kToolTipLine = 80;
constexpr qsizetype kToolTipLength = 20 * kToolTipLine;

/// More characters than a line on a screen can show.
constexpr qsizetype kLineLength = 1000;

/// The text, or its first `most` characters and an ellipsis.
QString Head(const QString& text, qsizetype most) {
  return text.size() > most ? text.first(most) + QChar(u'\u2026') : text;
}

}  // namespace

QString OneLine(const QString& text) {
  QString line = Head(text, kLineLength);
  std::replace_if(
      line.begin(), line.end(), [](QChar c) { return c.category() == QChar::Other_Control; },
      QChar(u' '));
  return line;
}

QString PlainToolTip(const QString& text) {
  QString lines;
  qsizetype in_line = 0;
  for (const QChar c : Head(text, kToolTipLength)) {
    if (in_line == kToolTipLine) {
      lines += QLatin1Char('\n');
      in_line = 0;
    }
    lines += c;
    in_line = c == QLatin1Char('\n') ? 0 : in_line + 1;
  }
  return QLatin1String("<div style=\"white-space: pre\">") + lines.toHtmlEscaped() +
         QLatin1String("</div>");
}

}  // namespace korvanta

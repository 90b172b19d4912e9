#include "ui/side_window.h"

#include <QCloseEvent>
#include <QLayout>
#include <QLineEdit>
#include <QResizeEvent>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme.h"

namespace korvanta {
namespace {

constexpr qsizetype kToolTipLine = 80;
constexpr qsizetype kToolTipLength = 20 * kToolTipLine;

/// More characters than a line on a screen can show.
constexpr qsizetype kLineLength = 1000;

/// More than anyone reads in a box of one line.
constexpr qsizetype kBoxLength = 10'000;

/// The text, or its first `most` characters and an ellipsis.
QString Head(const QString& text, qsizetype most) {
  return text.size() > most ? text.first(most) + QChar(u'\u2026') : text;
}

}  // namespace

SideWindow::SideWindow(WindowLife& life, QWidget* owner, Qt::WindowFlags flags)
    : QDialog(owner, flags), life_(life) {}

void SideWindow::reject() { life_.Unload(); }

void SideWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  life_.Unload();
}

void CaptionFrame::SetCaption(const QString& caption) {
  if (caption == caption_) {
    return;
  }
  caption_ = caption;
  setAccessibleName(caption);
  FitTitle();
}

QSize CaptionFrame::minimumSizeHint() const {
  return layout() == nullptr ? QSize() : layout()->totalMinimumSize();
}

void CaptionFrame::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  FitTitle();
}

void CaptionFrame::FitTitle() {
  const QString line = OneLine(caption_);
  const QFontMetrics metrics = fontMetrics();
  const int room = width() - 5 * theme::kUnit;
  QString shown = metrics.elidedText(line, Qt::ElideRight, room);
  // Each '&' is doubled to be shown, and measured so.
  const auto doubled = static_cast<int>(shown.count(QLatin1Char('&')));
  const int doubled_width = doubled * metrics.horizontalAdvance(QLatin1Char('&'));
  shown = metrics.elidedText(line, Qt::ElideRight, room - doubled_width);
  setToolTip(shown == caption_ ? QString() : PlainToolTip(caption_));
  setTitle(shown.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void NameControl(QWidget& control, const QString& name, const QString& accessible_name) {
  control.setObjectName(name);
  control.setAccessibleName(accessible_name);
}

void ShowText(QLineEdit& box, std::string_view text) {
  const QString head = Head(ToQString(text), kBoxLength);
  // What the user typed is whole, however long.
  if (box.text() != head && ToBytes(box.text()) != text) {
    box.setText(head);
    box.setCursorPosition(0);
  }
}

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

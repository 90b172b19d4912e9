#include "ui/kit/plain_label.h"

#include "ui/kit/plain_text.h"

namespace korvanta {
namespace {

/// The smallest legible font size.
constexpr int kSmallestPixels = 9;

}  // namespace

void SetUpLabel(QLabel& label, const QString& name, const LabelLook& look) {
  label.setObjectName(name);
  label.setTextFormat(Qt::PlainText);
  label.setGeometry(look.geometry);
  label.setAlignment(look.alignment);
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, look.colour);
  label.setPalette(palette);
  QFont font = label.font();
  font.setPixelSize(look.pixels);
  font.setBold(look.bold);
  label.setFont(font);
}

QLabel& MakeLabel(QWidget* parent, const QString& name, const LabelLook& look) {
  auto* label = new QLabel(parent);
  SetUpLabel(*label, name, look);
  return *label;
}

void ShowLine(QLabel& label, const QString& text) {
  label.setAccessibleName(text);
  const QString line = OneLine(text);
  const QString shown = label.fontMetrics().elidedText(line, Qt::ElideRight, label.width());
  label.setText(shown);
  label.setToolTip(shown == text ? QString() : PlainToolTip(text));
}

void ShowLine(QLabel& label, const QString& text, int pixels) {
  QFont font = label.font();
  for (font.setPixelSize(pixels); font.pixelSize() > kSmallestPixels;) {
    if (QFontMetrics(font).horizontalAdvance(text) <= label.width()) {
      break;
    }
    font.setPixelSize(font.pixelSize() - 1);
  }
  label.setFont(font);
  ShowLine(label, text);
}

}  // namespace korvanta

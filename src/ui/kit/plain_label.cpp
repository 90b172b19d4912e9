#include "ui/kit/plain_label.h"

namespace korvanta {

void SetUpLabel(QLabel& label, const QString& name, const LabelLook& look) {
  label.setObjectName(name);
  label.setTextFormat(Qt::PlainText);
  label.setGeometry(look.place);
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
  label.setText(label.fontMetrics().elidedText(text, Qt::ElideRight, label.width()));
}

}  // namespace korvanta

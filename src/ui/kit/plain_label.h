/// Labels at fixed positions on a painted background: on the board and on the splash.
#pragma once

#include <QColor>
#include <QLabel>
#include <QRect>
#include <QString>

namespace korvanta {

struct LabelLook {
  QRect geometry;
  QColor colour;
  int pixels;  ///< font size
  bool bold = false;
  Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
};

/// Sets a label's name, geometry and look, and makes it show plain text only.
void SetUpLabel(QLabel& label, const QString& name, const LabelLook& look);

/// A new label, owned by `parent`.
QLabel& MakeLabel(QWidget* parent, const QString& name, const LabelLook& look);

/// Shows a text on one line, elided to fit; the tool tip and screen readers get all of it.
void ShowLine(QLabel& label, const QString& text);

/// The same at a font size of `pixels`, reduced as far as legible where that makes the text fit.
void ShowLine(QLabel& label, const QString& text, int pixels);

}  // namespace korvanta

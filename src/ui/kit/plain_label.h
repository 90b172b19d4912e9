/// Labels at fixed places on a drawn ground: the board's and the splash's.
#pragma once

#include <QColor>
#include <QLabel>
#include <QRect>
#include <QString>

namespace korvanta {

struct LabelLook {
  QRect place;
  QColor colour;
  int pixels;  ///< letter size
  bool bold = false;
  Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
};

/// Gives a label its name, place and look, and makes it take every text as plain text.
void SetUpLabel(QLabel& label, const QString& name, const LabelLook& look);

/// A new label, owned by `parent`.
QLabel& MakeLabel(QWidget* parent, const QString& name, const LabelLook& look);

/// Sets a text of one line. What does not fit gives way to an ellipsis; the tool tip and screen
/// readers have all of it.
void ShowLine(QLabel& label, const QString& text);

/// The same in letters of `pixels`, or in smaller ones that are still legible when it fits in them.
void ShowLine(QLabel& label, const QString& text, int pixels);

}  // namespace korvanta

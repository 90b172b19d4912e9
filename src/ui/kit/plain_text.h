/// Names of controls, and the showing of plain text in them.
#pragma once

#include <QString>
#include <string_view>

class QLineEdit;
class QWidget;

namespace korvanta {

/// Sets the control's own name and what assistive technology calls it.
void NameControl(QWidget& control, const QString& name, const QString& accessible_name);

/// Shows a text, from its start, unless the box shows it already. Of a text longer than anyone
/// reads, only the head: the toolkit lays out all that a box holds at every key.
void ShowText(QLineEdit& box, std::string_view text);

/// The text on one line and not longer than a screen is wide, for controls that cut it to their
/// width: measuring and painting stay cheap whatever the server sends.
QString OneLine(const QString& text);

/// A tool tip that shows `text` as it is, markup included, in lines that fit a screen. Very long
/// texts are cut.
QString PlainToolTip(const QString& text);

}  // namespace korvanta

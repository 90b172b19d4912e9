/// Texts of the server made fit for controls that would take them for markup, or for longer than a
/// screen.
#pragma once

#include <QString>

namespace korvanta {

/// The text on one line and not longer than a screen is wide, for controls that cut it to their
/// width: measuring and painting stay cheap whatever the server sends.
QString OneLine(const QString& text);

/// A tool tip that shows `text` as it is, markup included, in lines that fit a screen. Very long
/// texts are cut.
QString PlainToolTip(const QString& text);

}  // namespace korvanta

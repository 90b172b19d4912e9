/// Prepares the server's texts for controls that interpret markup or lay out text of any length.
#pragma once

#include <QString>

namespace korvanta {

/// The text on one line and no longer than a screen is wide, for controls that elide it: measuring
/// and painting stay cheap whatever the server sends.
QString OneLine(const QString& text);

/// A tool tip that shows `text` literally, markup included, in lines that fit on a screen. Very
/// long texts are cut off.
QString PlainToolTip(const QString& text);

}  // namespace korvanta

/// The look of all windows: colours, spacing, and the style sheet that applies them.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include "base/colour.h"

class QApplication;

namespace korvanta {

constexpr QColor ToQColor(Colour colour) { return {colour.red, colour.green, colour.blue}; }

}  // namespace korvanta

namespace korvanta::theme {

/// Spacing unit in logical pixels; margins and gaps are multiples of it.
inline constexpr int kUnit = 8;

inline constexpr QColor kChrome{0x1c, 0x1d, 0x22};        ///< window background
inline constexpr QColor kChromeRaised{0x2a, 0x2c, 0x33};  ///< buttons, headers, menus
inline constexpr QColor kChromeBorder{0x4a, 0x4d, 0x57};
inline constexpr QColor kChromeText{0xe6, 0xe7, 0xeb};
inline constexpr QColor kMutedText{0xa2, 0xa6, 0xb1};
inline constexpr QColor kPaper{0xff, 0xff, 0xff};        ///< reading and typing areas
inline constexpr QColor kPaperHeader{0xe6, 0xe7, 0xeb};  ///< column headers on paper
inline constexpr QColor kInk{0x14, 0x15, 0x18};
inline constexpr QColor kInkMuted{0x5c, 0x60, 0x6b};
inline constexpr QColor kHandle{0x7e, 0x82, 0x8d};  ///< of scroll bars, on paper and on chrome
inline constexpr QColor kGold{0xe0, 0xb8, 0x3c};    ///< the one accent: focus, default button, goal
inline constexpr QColor kGoldText{0xf0, 0xd0, 0x70};
inline constexpr QColor kWarning{0xb0, 0x10, 0x10};
inline constexpr QColor kSelection{0xdb, 0xe6, 0xfc};  ///< selected text and rows on paper
inline constexpr QColor kFound{0xff, 0xe8, 0x9c};      ///< what a search found, on paper

/// Sets the style, palette and style sheet of the whole program. Windows add none of their own; the
/// style sheet selects controls that differ by name or property.
void Apply(QApplication& application);

}  // namespace korvanta::theme

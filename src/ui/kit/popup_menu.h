/// How the popup menus of the board and the online list come on the screen.
#pragma once

#include <QPoint>

class QMenu;

namespace korvanta {

enum class OpenedBy { Mouse, Keyboard };

/// Opened by the keyboard its first item is chosen, ready for Enter; by the mouse none is.
void OpenMenu(QMenu& menu, QPoint global_pos, OpenedBy opened_by);

}  // namespace korvanta

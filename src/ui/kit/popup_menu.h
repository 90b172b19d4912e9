/// Opening of the popup menus of the board and the online list.
#pragma once

#include <QPoint>

class QMenu;

namespace korvanta {

enum class OpenedBy { Mouse, Keyboard };

/// Opened by keyboard, its first item is selected, ready for Enter; opened by mouse, none is.
void OpenMenu(QMenu& menu, QPoint global_pos, OpenedBy opened_by);

}  // namespace korvanta

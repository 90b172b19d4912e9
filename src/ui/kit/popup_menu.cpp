#include "ui/kit/popup_menu.h"

#include <QMenu>

namespace korvanta {

void OpenMenu(QMenu& menu, QPoint global_pos, OpenedBy opened_by) {
  menu.popup(global_pos);
  menu.setActiveAction(opened_by == OpenedBy::Keyboard ? menu.actions().constFirst() : nullptr);
}

}  // namespace korvanta

#include "ui/message_view/message_view_menu.h"

#include <QApplication>
#include <QMenu>

#include "ui/kit/text.h"

namespace korvanta {

void CopySelection(const MessageView& view, QClipboard::Mode clipboard) {
  QClipboard* const target = QApplication::clipboard();
  if (!view.selection().empty() &&
      (clipboard != QClipboard::Selection || target->supportsSelection())) {
    target->setText(ToQString(view.SelectedText()), clipboard);
  }
}

void OpenMessageMenu(QWidget& widget, MessageView& view, QPoint global_position) {
  auto* const menu = new QMenu(&widget);
  menu->setAccessibleName(widget.accessibleName());
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* const copy = menu->addAction(QStringLiteral("&Copy"), menu,
                                        [&view] { CopySelection(view, QClipboard::Clipboard); });
  copy->setShortcut(QKeySequence::Copy);
  copy->setEnabled(!view.selection().empty());
  QAction* const all =
      menu->addAction(QStringLiteral("Select &All"), menu, [&view] { view.SelectAll(); });
  all->setShortcut(QKeySequence::SelectAll);
  menu->addSeparator();
  menu->addActions(widget.actions());
  for (QAction* action : menu->actions()) {
    action->setShortcutVisibleInContextMenu(true);
  }
  menu->popup(global_position);
}

}  // namespace korvanta

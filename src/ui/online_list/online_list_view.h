/// The online list in the main window: a table that opens the player menu.
#pragma once

#include <QPoint>
#include <functional>

#include "lobby/online_list.h"
#include "ui/kit/list_view.h"
#include "ui/kit/popup_menu.h"
#include "ui/online_list/online_list_model.h"

namespace korvanta {

class OnlineListView : public ListView {
 public:
  /// Takes over the list's `on_changed`; the list must outlive the view.
  OnlineListView(OnlineList& list, QWidget* parent);

  /// The player menu was requested: by releasing the right mouse button anywhere in the list, or by
  /// the Menu key or Shift+F10 on the selected entry.
  std::function<void(QPoint global_pos, OpenedBy opened_by)> on_menu;

 protected:
  bool viewportEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void SelectAt(QPoint point);

  /// Where the keyboard opens the menu of the current entry, as a global position.
  QPoint CurrentEntryPosition() const;

  OnlineList& list_;
  OnlineListModel* model_;
};

}  // namespace korvanta

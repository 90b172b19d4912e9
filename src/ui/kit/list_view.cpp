#include "ui/kit/list_view.h"

namespace korvanta {

ListView::ListView(QWidget* parent) : QTreeView(parent) {
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
}

/// The toolkit makes the first row current; without a selection the first arrow key would then skip
/// it.
void ListView::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  if (!selectionModel()->hasSelection()) {
    selectionModel()->clearCurrentIndex();
  }
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  viewport()->update();  // single rows would not end on whole device pixels at 125 and 150 %
}

}  // namespace korvanta

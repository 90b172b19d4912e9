#include "ui/online_list_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <optional>

namespace korvanta {
namespace {

constexpr int kLevelColumnWidth = 84;

}  // namespace

OnlineListView::OnlineListView(OnlineList& list, QWidget* parent)
    : QTreeView(parent), list_(list), model_(new OnlineListModel(list, this)) {
  setObjectName(QStringLiteral("lstOnline"));
  setAccessibleName(QStringLiteral("Players online"));
  setModel(model_);
  setUniformRowHeights(true);
  setIconSize({OnlineListModel::kMarkSize, OnlineListModel::kMarkSize});
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setAllColumnsShowFocus(true);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
  header()->setSectionResizeMode(OnlineListModel::Name, QHeaderView::Stretch);
  header()->setSectionResizeMode(OnlineListModel::Level, QHeaderView::Fixed);
  header()->resizeSection(OnlineListModel::Level, kLevelColumnWidth);
  header()->setSortIndicatorClearable(true);
  header()->setSortIndicator(-1, Qt::AscendingOrder);
  setSortingEnabled(true);
  list_.on_changed = [this] { model_->Rebuilt(); };
}

bool OnlineListView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      if (IsRightButtonBelowEntries(*static_cast<QMouseEvent*>(event))) {
        return true;  // the toolkit would take the selection away, which the menu is to act on
      }
      break;
    case QEvent::MouseButtonRelease:
      if (const auto& mouse = *static_cast<QMouseEvent*>(event);
          mouse.button() == Qt::RightButton) {
        QTreeView::viewportEvent(event);
        AskForMenu(mouse.globalPosition().toPoint());
        return true;
      }
      break;
    case QEvent::ContextMenu:
      if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
        AskForMenu(CurrentEntryPosition());
      }
      return true;
    default:
      break;
  }
  return QTreeView::viewportEvent(event);
}

bool OnlineListView::IsRightButtonBelowEntries(const QMouseEvent& event) const {
  return event.button() == Qt::RightButton && !indexAt(event.position().toPoint()).isValid();
}

void OnlineListView::AskForMenu(QPoint global_pos) const {
  if (on_menu) {
    on_menu(global_pos);
  }
}

void OnlineListView::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  const QModelIndexList rows = selectionModel()->selectedRows();
  list_.Select(rows.isEmpty() ? std::nullopt : std::optional(model_->EntryAt(rows.first().row())));
}

QPoint OnlineListView::CurrentEntryPosition() const {
  const QRect entry = visualRect(currentIndex());
  const QPoint inside = entry.isValid() ? entry.bottomLeft() : viewport()->rect().topLeft();
  return viewport()->mapToGlobal(inside);
}

}  // namespace korvanta

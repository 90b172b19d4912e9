#include "ui/online_list/online_list_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <optional>

#include "base/change_notice.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

constexpr int kLevelColumnWidth = 84;

/// Draws selected rows in their own colours on the background of a selection.
class OwnColourDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem plain(option);
    if (plain.state.testFlag(QStyle::State_Selected)) {
      painter->fillRect(plain.rect, theme::kSelection);
    }
    plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    QStyledItemDelegate::paint(painter, plain, index);
  }
};

}  // namespace

OnlineListView::OnlineListView(OnlineList& list, QWidget* parent)
    : ListView(parent), list_(list), model_(new OnlineListModel(list, this)) {
  setObjectName(QStringLiteral("lstOnline"));
  setAccessibleName(QStringLiteral("Players online"));
  verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll players"));
  setModel(model_);
  setItemDelegate(new OwnColourDelegate(this));
  setIconSize({OnlineListModel::kMarkSize, OnlineListModel::kMarkSize});
  setEditTriggers(QAbstractItemView::NoEditTriggers);
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
      if (const auto& mouse = *static_cast<QMouseEvent*>(event);
          mouse.button() == Qt::RightButton) {
        // Below the entries and with Ctrl, the toolkit would clear the selection, which the menu is
        // for.
        SelectAt(mouse.position().toPoint());
        return true;
      }
      break;
    case QEvent::MouseButtonRelease:
      if (const auto& mouse = *static_cast<QMouseEvent*>(event);
          mouse.button() == Qt::RightButton) {
        Notify(on_menu, mouse.globalPosition().toPoint(), OpenedBy::Mouse);
        return true;
      }
      break;
    case QEvent::ContextMenu:
      return true;  // the menu opens when the button is released
    default:
      break;
  }
  return ListView::viewportEvent(event);
}

void OnlineListView::keyPressEvent(QKeyEvent* event) {
  const bool shift_f10 = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
  if (event->key() == Qt::Key_Menu || shift_f10) {
    Notify(on_menu, CurrentEntryPosition(), OpenedBy::Keyboard);
  } else {
    ListView::keyPressEvent(event);
  }
}

/// The keys request the menu themselves; the toolkit's event would be a second request.
void OnlineListView::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

void OnlineListView::SelectAt(QPoint point) {
  if (const QModelIndex entry = indexAt(point); entry.isValid()) {
    selectionModel()->setCurrentIndex(
        entry, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
}

void OnlineListView::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
  ListView::selectionChanged(selected, deselected);
  const QModelIndexList rows = selectionModel()->selectedRows();
  list_.Select(rows.isEmpty() ? std::nullopt : std::optional(model_->EntryAt(rows.first().row())));
}

QPoint OnlineListView::CurrentEntryPosition() const {
  const QRect entry = visualRect(currentIndex());
  const QPoint inside = entry.isValid() ? entry.bottomLeft() : viewport()->rect().topLeft();
  return viewport()->mapToGlobal(inside);
}

}  // namespace korvanta

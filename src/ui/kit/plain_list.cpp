#include "ui/kit/plain_list.h"

#include <QHeaderView>
#include <QScrollBar>

#include "ui/kit/plain_text.h"

namespace korvanta {

QString OneLineDelegate::displayText(const QVariant& value, const QLocale& /*locale*/) const {
  return OneLine(value.toString());
}

void PlainListModel::SetRows(const QStringList& rows) {
  if (rows == rows_) {
    return;
  }
  beginResetModel();
  rows_ = rows;
  endResetModel();
}

int PlainListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PlainListModel::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
      return rows_.at(index.row());
    case Qt::ToolTipRole:
      return PlainToolTip(rows_.at(index.row()));
    default:
      return {};
  }
}

QVariant PlainListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (section != 0 || orientation != Qt::Horizontal) {
    return {};
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return role == Qt::DisplayRole ? QVariant(heading_) : QVariant();
}

PlainListView::PlainListView(const QString& heading, QWidget* parent)
    : ListView(parent), model_(heading) {
  setModel(&model_);
  setItemDelegate(new OneLineDelegate(this));
  setAccessibleName(heading);
  verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll ") + heading);
  header()->setSectionsClickable(false);
  header()->setSectionResizeMode(QHeaderView::Stretch);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (on_selected) {
      on_selected(selected());
    }
  });
}

void PlainListView::ShowRows(const QStringList& rows, std::optional<std::size_t> selected_row) {
  const auto listener = std::exchange(on_selected, nullptr);
  model_.SetRows(rows);
  if (selected_row != selected()) {
    if (selected_row) {
      setCurrentIndex(model_.index(static_cast<int>(*selected_row)));
    } else {
      selectionModel()->clear();
    }
  }
  on_selected = listener;
}

std::optional<std::size_t> PlainListView::selected() const {
  const QModelIndexList rows = selectionModel()->selectedRows();
  return rows.isEmpty() ? std::nullopt
                        : std::optional(static_cast<std::size_t>(rows.first().row()));
}

}  // namespace korvanta

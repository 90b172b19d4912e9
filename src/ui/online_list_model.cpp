#include "ui/online_list_model.h"

#include <QColor>
#include <QPixmap>
#include <algorithm>
#include <numeric>
#include <optional>

#include "protocol/field_reading.h"
#include "ui/side_window.h"
#include "ui/text.h"
#include "ui/theme.h"

namespace korvanta {
namespace {

/// An empty picture of the mark's size, so that all names start at the same place.
QIcon EmptyIcon() {
  QPixmap pixmap(OnlineListModel::kMarkSize, OnlineListModel::kMarkSize);
  pixmap.fill(Qt::transparent);
  return {pixmap};
}

bool NameBefore(const OnlineList::Entry& a, const OnlineList::Entry& b) {
  return QString::compare(ToQString(a.name), ToQString(b.name), Qt::CaseInsensitive) < 0;
}

bool LevelBefore(const OnlineList::Entry& a, const OnlineList::Entry& b) {
  const std::optional<double> a_number = ParseNumber(a.level);
  const std::optional<double> b_number = ParseNumber(b.level);
  if (a_number && b_number) {
    return *a_number < *b_number;
  }
  return a_number.has_value() > b_number.has_value() ||
         (!a_number && !b_number && a.level < b.level);
}

}  // namespace

OnlineListModel::OnlineListModel(const OnlineList& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(list),
      marked_(QStringLiteral(":/pictures/marked.svg")),
      unmarked_(EmptyIcon()) {
  name_font_.setBold(true);
  Sort();
}

void OnlineListModel::Rebuilt() {
  beginResetModel();
  Sort();
  endResetModel();
}

int OnlineListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int OnlineListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant OnlineListModel::data(const QModelIndex& index, int role) const {
  const OnlineList::Entry& entry = list_.entries()[EntryAt(index.row())];
  const bool is_name = index.column() == Name;
  switch (role) {
    case Qt::DisplayRole:
      return ToQString(is_name ? entry.name : entry.level);
    case Qt::ForegroundRole:
      return is_name ? ToQColor(entry.colour) : QVariant();
    case Qt::FontRole:
      return is_name ? name_font_ : QVariant();
    case Qt::DecorationRole:
      return is_name ? (entry.marked ? marked_ : unmarked_) : QVariant();
    case Qt::ToolTipRole:
      return PlainToolTip(ToQString(is_name ? entry.name : entry.level));
    case Qt::AccessibleTextRole:
      return is_name && entry.marked ? ToQString(entry.name) + QStringLiteral(", marked")
                                     : ToQString(is_name ? entry.name : entry.level);
    default:
      return {};
  }
}

QVariant OnlineListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) {
    return {};
  }
  if (role == Qt::DisplayRole) {
    return section == Name ? QStringLiteral("Name") : QStringLiteral("Level");
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

void OnlineListModel::sort(int column, Qt::SortOrder order) {
  sort_column_ = column;
  sort_order_ = order;
  Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
  const QModelIndexList before = persistentIndexList();
  const std::vector<std::size_t> order_before = order_;
  Sort();
  std::vector<int> row_of(order_.size());
  for (std::size_t row = 0; row < order_.size(); ++row) {
    row_of[order_[row]] = static_cast<int>(row);
  }
  for (const QModelIndex& old : before) {
    const std::size_t entry = order_before[static_cast<std::size_t>(old.row())];
    changePersistentIndex(old, index(row_of[entry], old.column()));
  }
  Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void OnlineListModel::Sort() {
  const auto& entries = list_.entries();
  order_.resize(entries.size());
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  if (sort_column_ != Name && sort_column_ != Level) {
    return;
  }
  const auto before = sort_column_ == Name ? NameBefore : LevelBefore;
  std::stable_sort(order_.begin(), order_.end(), [&](std::size_t a, std::size_t b) {
    return sort_order_ == Qt::AscendingOrder ? before(entries[a], entries[b])
                                             : before(entries[b], entries[a]);
  });
}

}  // namespace korvanta

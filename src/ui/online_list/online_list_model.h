/// The Qt model of the online list: a table of names and levels that reads from the plain list and
/// stores only the order of its rows.
#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QIcon>
#include <cstddef>
#include <vector>

#include "lobby/online_list.h"

namespace korvanta {

class OnlineListModel : public QAbstractTableModel {
 public:
  /// Side of the mark, in logical pixels.
  static constexpr int kMarkSize = 14;

  enum Column { Name, Level, ColumnCount };

  /// The list must outlive the model; its listener calls `Rebuilt`.
  OnlineListModel(const OnlineList& list, QObject* parent);

  void Rebuilt();

  /// Index in the plain list of the entry in a row.
  std::size_t EntryAt(int row) const { return order_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Sorts by name, ignoring case, or by level as a number, texts last; equal entries keep the
  /// order received. Column -1 restores that order.
  void sort(int column, Qt::SortOrder order) override;

 private:
  void Sort();

  const OnlineList& list_;
  std::vector<std::size_t> order_;
  int sort_column_ = -1;
  Qt::SortOrder sort_order_ = Qt::AscendingOrder;
  QFont name_font_;  // bold: colours on a light background need the weight
  QIcon marked_;
  QIcon unmarked_;
};

}  // namespace korvanta

/// A list of plain texts in one column under a heading, for the side windows.
#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <QStyledItemDelegate>
#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

#include "ui/kit/list_view.h"

namespace korvanta {

/// Draws each text on one line, elided to fit.
class OneLineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override;
};

class PlainListModel : public QAbstractListModel {
 public:
  explicit PlainListModel(QString heading) : heading_(std::move(heading)) {}

  /// Resets the model, unless the rows are the same.
  void SetRows(const QStringList& rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString heading_;
  QStringList rows_;
};

/// Rows are one line high; a long text is elided, with all of it in the tool tip.
class PlainListView : public ListView {
 public:
  explicit PlainListView(const QString& heading, QWidget* parent = nullptr);

  /// Shows these rows with this selection; does not call `on_selected`.
  void ShowRows(const QStringList& rows, std::optional<std::size_t> selected_row = {});

  std::optional<std::size_t> selected() const;

  /// The user selected another row or none.
  std::function<void(std::optional<std::size_t> row)> on_selected;

 private:
  PlainListModel model_;
};

}  // namespace korvanta

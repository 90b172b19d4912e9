/// A list of plain texts in one column under a heading, as the side windows show it.
#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

namespace korvanta {

/// Draws each text on one line, cut to its width.
class OneLineDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override;
};

class PlainListModel : public QAbstractListModel {
 public:
  explicit PlainListModel(QString heading) : heading_(std::move(heading)) {}

  /// One reset, and none when the rows are those shown already.
  void SetRows(const QStringList& rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QString heading_;
  QStringList rows_;
};

/// Rows are one line high; a long text is cut at the list's width and whole in its tool tip.
class PlainListView : public QTreeView {
 public:
  explicit PlainListView(const QString& heading, QWidget* parent = nullptr);

  /// Shows these rows and which of them is selected; does not raise `on_selected`.
  void ShowRows(const QStringList& rows, std::optional<std::size_t> selected_row = {});

  std::optional<std::size_t> selected() const;

  /// The user selected another row or none.
  std::function<void(std::optional<std::size_t> row)> on_selected;

 protected:
  void focusInEvent(QFocusEvent* event) override;

 private:
  PlainListModel model_;
};

}  // namespace korvanta

/// The look and the keyboard that the lists of the windows have in common.
#pragma once

#include <QTreeView>

namespace korvanta {

/// A list of rows of equal height, of which one may be selected. The first arrow key selects the
/// first row.
class ListView : public QTreeView {
 public:
  explicit ListView(QWidget* parent);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
};

}  // namespace korvanta

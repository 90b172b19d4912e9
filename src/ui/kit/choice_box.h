/// An editable box with a list to choose from, as the windows have them.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QWheelEvent>

namespace korvanta {

/// Takes any text and changes none by itself. The wheel passes over it: a choice has
/// effects, such as another password in the place of the one typed.
class ChoiceBox : public QComboBox {
 public:
  explicit ChoiceBox(QWidget* parent = nullptr) : QComboBox(parent) {
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(QComboBox::NoInsert);
    setDuplicatesEnabled(true);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace korvanta

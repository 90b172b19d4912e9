/// An editable combo box.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <string>
#include <vector>

namespace korvanta {

/// Accepts text of any length and never changes it by itself, not even when it loses the focus.
/// Ignores the wheel: a choice has effects, such as replacing the password typed.
class ChoiceBox : public QComboBox {
 public:
  explicit ChoiceBox(const char* name, QWidget* parent = nullptr);

  /// Sets the list to choose from. Text, caret and selection stay.
  void ShowChoices(const std::vector<std::string>& choices);

  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void ReplaceChoices(const std::vector<std::string>& choices);
  void FollowText();

  std::vector<std::string> choices_;
};

}  // namespace korvanta

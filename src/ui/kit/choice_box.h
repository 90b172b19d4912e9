/// An editable box with a list to choose from, as the windows have them.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <string>
#include <vector>

namespace korvanta {

/// Takes a text of any length and changes none by itself, also when it is left. The wheel passes
/// over it: a choice has effects, such as another password in the place of the one typed.
class ChoiceBox : public QComboBox {
 public:
  explicit ChoiceBox(const char* name, QWidget* parent = nullptr);

  /// Sets what there is to choose from. The text stays, its caret and selection too.
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

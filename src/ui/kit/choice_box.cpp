#include "ui/kit/choice_box.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "ui/kit/plain_list.h"
#include "ui/kit/text.h"

namespace korvanta {

ChoiceBox::ChoiceBox(const char* name, QWidget* parent) : QComboBox(parent) {
  setObjectName(QLatin1String(name));
  setEditable(true);
  setCompleter(nullptr);
  setInsertPolicy(QComboBox::NoInsert);
  setDuplicatesEnabled(true);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setItemDelegate(new OneLineDelegate(this));
  view()->setTextElideMode(Qt::ElideRight);
  lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  // When the box loses the focus, the toolkit would treat a text that equals an entry as a choice.
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
}

void ChoiceBox::ShowChoices(const std::vector<std::string>& choices) {
  if (choices == choices_) {
    return;
  }
  QLineEdit& box = *lineEdit();
  const QSignalBlocker quiet(box);
  const QString text = box.text();
  const int caret = box.cursorPosition();
  const int selection = box.selectionStart();
  const int length = box.selectionLength();
  ReplaceChoices(choices);
  box.setText(text);
  box.setCursorPosition(caret);
  if (selection == caret) {
    box.setSelection(selection + length, -length);
  } else if (selection >= 0) {
    box.setSelection(selection, length);
  }
}

/// The toolkit makes the first entry current and writes it into the box, which lays it out however
/// long it is. An empty entry takes that position meanwhile.
void ChoiceBox::ReplaceChoices(const std::vector<std::string>& choices) {
  const auto [old_end, new_begin] =
      std::mismatch(choices_.begin(), choices_.end(), choices.begin(), choices.end());
  insertItem(0, QString());
  setCurrentIndex(-1);
  while (count() > old_end - choices_.begin() + 1) {
    removeItem(count() - 1);
  }
  std::for_each(new_begin, choices.end(),
                [this](const std::string& choice) { addItem(ToQString(choice)); });
  removeItem(0);
  choices_ = choices;
}

/// Makes the entry that equals the box's text current: keys continue from it, and the list opens at
/// it.
void ChoiceBox::FollowText() {
  const QString text = currentText();
  if (itemText(currentIndex()) == text) {
    return;
  }
  const int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (index >= 0 || text.isEmpty()) {
    setCurrentIndex(index);
  }
}

void ChoiceBox::showPopup() {
  FollowText();
  QComboBox::showPopup();
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
  FollowText();
  QComboBox::keyPressEvent(event);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace korvanta

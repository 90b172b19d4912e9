#include "ui/kit/controls.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <limits>
#include <utility>

#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// In bytes; more than anyone reads in a box of one line.
constexpr std::size_t kMaxServerText = 10'000;
constexpr char kEllipsisByte = '\x85';

void SetAccessibleName(QWidget& control, QString caption) {
  caption.remove(QLatin1Char('&'));
  control.setAccessibleName(caption);
  if (auto* choice = qobject_cast<QComboBox*>(&control)) {
    choice->lineEdit()->setAccessibleName(caption);
    choice->view()->setAccessibleName(caption);
  }
}

}  // namespace

void NameControl(QWidget& control, const char* name, const QString& caption) {
  control.setObjectName(QLatin1String(name));
  SetAccessibleName(control, caption);
}

QPushButton* MakeButton(const char* name, const QString& caption) {
  auto* button = new QPushButton(caption);
  NameControl(*button, name, caption);
  button->setAutoDefault(false);
  return button;
}

QLabel* MakeCaption(const QString& caption, QWidget& control) {
  auto* label = new QLabel(caption);
  label->setBuddy(&control);
  SetAccessibleName(control, caption);
  return label;
}

QLineEdit* MakeTextBox(const char* name) {
  auto* box = new QLineEdit;
  box->setObjectName(QLatin1String(name));
  box->setMaxLength(std::numeric_limits<int>::max());
  return box;
}

void OnTyped(QLineEdit& box, std::function<void(const std::string&)> typed) {
  QObject::connect(&box, &QLineEdit::textChanged, &box,
                   [typed = std::move(typed)](const QString& text) { typed(ToBytes(text)); });
}

void ShowText(QLineEdit& box, std::string_view text) {
  if (ToBytes(box.text()) == text) {
    return;
  }
  const QString shown = ToQString(text);
  const bool same_letters = shown.compare(box.text(), Qt::CaseInsensitive) == 0;
  const int caret = box.cursorPosition();
  const QSignalBlocker quiet(box);
  box.setText(shown);  // which leaves the caret at the end
  if (!box.hasFocus()) {
    box.setCursorPosition(0);
  } else if (same_letters) {
    box.setCursorPosition(caret);
  }
}

void ShowServerText(QLineEdit& box, std::string_view text) {
  if (text.size() <= kMaxServerText) {
    ShowText(box, text);
  } else if (ToBytes(box.text()) != text) {
    ShowText(box, std::string(text.substr(0, kMaxServerText)) + kEllipsisByte);
  }
}

}  // namespace korvanta

#include "ui/desktop/qt_message_box.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr int kMostLines = 24;
constexpr int kLineLength = 40;  ///< in characters
constexpr int kTabWidth = 8;
constexpr QChar kBreakPlace{0x200B};
constexpr QChar kEllipsis{0x2026};

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

/// Shows the box above the active window and gives the keyboard back to that window afterwards.
int Execute(std::string_view text, std::string_view title, QMessageBox::Icon icon,
            QMessageBox::StandardButtons buttons) {
  const QPointer<QWidget> owner = QApplication::activeWindow();
  const QPointer<QMessageBox> box = new QMessageBox(owner);
  box->setWindowModality(Qt::ApplicationModal);
  box->setWindowTitle(ToQString(title));
  box->setAccessibleName(ToQString(title));
  box->setTextFormat(Qt::PlainText);
  box->setText(QtMessageBox::Fit(ToQString(text)));
  box->setIcon(icon);
  box->setStandardButtons(buttons);
  if (buttons.testFlag(QMessageBox::No)) {
    box->setDefaultButton(QMessageBox::Yes);
    box->setEscapeButton(QMessageBox::No);
  }
  const int answer = box->exec();
  delete box;  // null when its owner went meanwhile
  if (owner) {
    owner->activateWindow();
  }
  return answer;
}

}  // namespace

void QtMessageBox::Show(std::string_view text, std::string_view title, MessageIcon icon) {
  Execute(text, title, IconOf(icon), QMessageBox::Ok);
}

bool QtMessageBox::Ask(std::string_view text, std::string_view title) {
  return Execute(text, title, QMessageBox::NoIcon, QMessageBox::Yes | QMessageBox::No) ==
         QMessageBox::Yes;
}

QString QtMessageBox::Fit(const QString& text) {
  QString fitted;
  int line = 1;
  int column = 0;
  int word = 0;
  for (const QChar character : text) {
    column += character == QLatin1Char('\t') ? kTabWidth : 1;
    word = character.isSpace() ? 0 : word + 1;
    if (character == QLatin1Char('\n') || column > kLineLength) {
      column = 0;
      if (++line > kMostLines) {
        return fitted + kEllipsis;
      }
    }
    if (word > kLineLength) {
      fitted += kBreakPlace;
      word = 1;
    }
    fitted += character;
  }
  return fitted;
}

}  // namespace korvanta

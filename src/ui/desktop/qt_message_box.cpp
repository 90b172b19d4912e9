#include "ui/desktop/qt_message_box.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/text.h"

namespace korvanta {
namespace {

constexpr int kMostCharacters = 1500;
constexpr int kMostLines = 25;
constexpr int kLongestWord = 40;
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

void SetUp(QMessageBox& box, std::string_view text, std::string_view title) {
  box.setWindowModality(Qt::ApplicationModal);
  box.setWindowTitle(ToQString(title));
  box.setAccessibleName(ToQString(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(QtMessageBox::Fit(ToQString(text)));
}

}  // namespace

void QtMessageBox::Show(std::string_view text, std::string_view title, MessageIcon icon) {
  QMessageBox box(QApplication::activeWindow());
  SetUp(box, text, title);
  box.setIcon(IconOf(icon));
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
}

bool QtMessageBox::Ask(std::string_view text, std::string_view title) {
  QMessageBox box(QApplication::activeWindow());
  SetUp(box, text, title);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

QString QtMessageBox::Fit(const QString& text) {
  QString fitted;
  int lines = 1;
  int word = 0;
  for (const QChar character : text.first(std::min<qsizetype>(text.size(), kMostCharacters))) {
    if (character == QLatin1Char('\n') && ++lines > kMostLines) {
      return fitted + kEllipsis;
    }
    word = character.isSpace() ? 0 : word + 1;
    if (word > kLongestWord) {
      fitted += kBreakPlace;
      word = 1;
    }
    fitted += character;
  }
  return text.size() > kMostCharacters ? fitted + kEllipsis : fitted;
}

}  // namespace korvanta

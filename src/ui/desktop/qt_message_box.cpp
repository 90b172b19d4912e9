#include "ui/desktop/qt_message_box.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <numeric>

#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// Space that a box needs around its text: frame, icon and buttons.
constexpr QSize kAroundText{160, 200};

/// The toolkit breaks lines at this width, or at half the screen's where that is less.
constexpr int kLineWidth = 500;

constexpr QChar kZeroWidthSpace{0x200B};
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

/// The text with invisible break opportunities in the words that are wider than `width`.
QString WithBreakOpportunities(const QString& text, const QFontMetrics& font, int width) {
  QString broken;
  int word_width = 0;
  for (const QChar character : text) {
    const int advance = font.horizontalAdvance(character);
    word_width = character.isSpace() ? 0 : word_width + advance;
    if (word_width > width) {
      broken += kZeroWidthSpace;
      word_width = advance;
    }
    broken += character;
  }
  return broken;
}

/// The active window. While the user is in another program it is the main window, the only one of
/// ours that is no dialog.
QWidget* Owner() {
  if (QWidget* active = QApplication::activeWindow()) {
    return active;
  }
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto main_window = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && window->windowType() == Qt::Window;
  });
  return main_window == windows.end() ? nullptr : *main_window;
}

/// Shows the box in the middle of its owner and gives the keyboard back to that window afterwards.
int Execute(std::string_view text, std::string_view title, QMessageBox::Icon icon,
            QMessageBox::StandardButtons buttons) {
  const QPointer<QWidget> owner = Owner();
  const QPointer<QMessageBox> box = new QMessageBox(owner);
  box->setWindowModality(Qt::ApplicationModal);
  box->setWindowTitle(ToQString(title));
  box->setAccessibleName(ToQString(title));
  box->setTextFormat(Qt::PlainText);
  box->ensurePolished();
  box->setText(QtMessageBox::Fit(ToQString(text), box->fontMetrics(),
                                 box->screen()->availableSize() - kAroundText));
  box->setIcon(icon);
  box->setStandardButtons(buttons);
  if (buttons.testFlag(QMessageBox::No)) {
    box->setDefaultButton(QMessageBox::Yes);
    box->setEscapeButton(QMessageBox::No);
  }
  const int answer = box->exec();
  delete box;  // null if its owner was deleted meanwhile
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

QString QtMessageBox::Fit(const QString& text, const QFontMetrics& font, QSize room) {
  const int line_width = std::min(kLineWidth, room.width() / 2);
  const auto shown = [&](qsizetype kept) {
    const qsizetype half = kept / 2;
    return WithBreakOpportunities(
        kept == text.size() ? text : text.first(kept - half) + kEllipsis + text.last(half), font,
        room.width());
  };
  const auto fits = [&](qsizetype kept) {
    const QRect line(0, 0, line_width, 0);
    return font.boundingRect(line, Qt::TextWordWrap | Qt::TextExpandTabs, shown(kept)).height() <=
           room.height();
  };
  if (fits(text.size())) {
    return shown(text.size());
  }
  qsizetype kept = 0;
  for (qsizetype too_many = text.size(); too_many - kept > 1;) {
    const qsizetype middle = std::midpoint(kept, too_many);
    (fits(middle) ? kept : too_many) = middle;
  }
  return shown(kept);
}

}  // namespace korvanta

#include "ui/windows/chat_box.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLabel>

#include "ui/kit/controls.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// The number of remaining characters is shown from here down.
constexpr std::ptrdiff_t kShowRemainingFrom = 50;

/// Width reserved for that number, shown or not.
constexpr int kRemainingWidth = 5 * theme::kUnit;

}  // namespace

ChatBox::ChatBox(ChatInput& input, QWidget* parent)
    : ChoiceBox("cboSend", parent), input_(input), lblRemaining(new QLabel(lineEdit())) {
  NameControl(*this, "cboSend", QStringLiteral("Chat line"));
  view()->setAccessibleName(QStringLiteral("Earlier lines"));
  lineEdit()->setTextMargins(0, 0, kRemainingWidth, 0);

  lblRemaining->setObjectName(QStringLiteral("lblRemaining"));
  lblRemaining->setTextFormat(Qt::PlainText);
  lblRemaining->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  lblRemaining->setAttribute(Qt::WA_TransparentForMouseEvents);

  OnTyped(*lineEdit(), [this](const std::string& text) { input_.TextEdited(text); });
  connect(this, &QComboBox::activated, this,
          [this](int index) { input_.HistoryChosen(static_cast<std::size_t>(index)); });
  Refresh();
}

void ChatBox::Refresh() {
  ShowText(*lineEdit(), input_.text());
  ShowChoices(input_.history());
  ShowRemaining();
}

void ChatBox::ShowRemaining() {
  const std::ptrdiff_t remaining = input_.Remaining();
  const bool near = remaining <= kShowRemainingFrom;
  lblRemaining->setVisible(near);
  if (near) {
    lblRemaining->setText(QString::number(remaining));
    QPalette colours = lblRemaining->palette();
    colours.setColor(QPalette::WindowText, remaining < 0 ? theme::kWarning : theme::kInkMuted);
    lblRemaining->setPalette(colours);
  }
}

void ChatBox::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool vertical = key == Qt::Key_Up || key == Qt::Key_Down;
  if (vertical && modifiers == Qt::NoModifier) {
    key == Qt::Key_Up ? input_.HistoryUp() : input_.HistoryDown();
    return;
  }
  // These would replace the text being typed with a line of the list; with Alt they open the list.
  const bool chooses = key == Qt::Key_PageUp || key == Qt::Key_PageDown ||
                       (vertical && !modifiers.testFlag(Qt::AltModifier));
  if (!chooses) {
    ChoiceBox::keyPressEvent(event);
  }
}

void ChatBox::resizeEvent(QResizeEvent* event) {
  QComboBox::resizeEvent(event);
  const QRect line = lineEdit()->rect();
  lblRemaining->setGeometry(line.right() - kRemainingWidth, 0, kRemainingWidth, line.height());
}

}  // namespace korvanta

#include "ui/message_view/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using Direction = MessageSearch::Direction;
using Outcome = MessageSearch::Outcome;

constexpr int kMaxCharacters = 250;  // no longer than a line that a player can send
constexpr int kOutcomeWidth = 20 * theme::kUnit;

QString TextOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::NoMatch:
      return QStringLiteral("No match");
    case Outcome::WrappedToNewest:
      return QStringLiteral("From the newest again");
    case Outcome::WrappedToOldest:
      return QStringLiteral("From the oldest again");
    case Outcome::Nothing:
    case Outcome::Found:
      break;
  }
  return {};
}

}  // namespace

FindBar::FindBar(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("findBar"));
  setAccessibleName(QStringLiteral("Find in text"));
  setCursor(Qt::ArrowCursor);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(theme::kUnit, theme::kUnit / 2, theme::kUnit, theme::kUnit / 2);
  row->setSpacing(theme::kUnit);

  txtFind = new QLineEdit(this);
  txtFind->setObjectName(QStringLiteral("txtFind"));
  txtFind->setAccessibleName(QStringLiteral("Find"));
  txtFind->setPlaceholderText(QStringLiteral("Find"));
  txtFind->setMaxLength(kMaxCharacters);
  txtFind->setToolTip(
      QStringLiteral("Enter: older, Shift+Enter: newer, Ctrl+Enter: select it, Esc: close"));
  connect(txtFind, &QLineEdit::textChanged, this, [this](const QString& text) { on_typed(text); });
  row->addWidget(txtFind, 1);

  lblOutcome = new QLabel(this);
  lblOutcome->setObjectName(QStringLiteral("lblOutcome"));
  lblOutcome->setTextFormat(Qt::PlainText);
  lblOutcome->setFixedWidth(kOutcomeWidth);
  row->addWidget(lblOutcome);

  struct Button {
    const char* name;
    const char* caption;
    const char* keys;
    std::function<void()> press;
  };
  const Button buttons[] = {
      {"btnOlder", "Older", "Ctrl+G", [this] { on_next(Direction::Older); }},
      {"btnNewer", "Newer", "Ctrl+Shift+G", [this] { on_next(Direction::Newer); }},
      {"btnCloseFind", "Close", "Esc", [this] { on_close(); }},
  };
  setTabOrder(parent, txtFind);
  QWidget* before = txtFind;
  for (const auto& [name, caption, keys, press] : buttons) {
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(QLatin1String(caption));
    button->setAccessibleName(button->text());
    button->setToolTip(QLatin1String(keys));
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, press);
    row->addWidget(button);
    setTabOrder(before, button);
    before = button;
  }
}

void FindBar::StartTyping() {
  txtFind->setFocus(Qt::ShortcutFocusReason);
  txtFind->selectAll();
}

void FindBar::ShowOutcome(Outcome outcome, const QString& line) {
  const QString words = TextOf(outcome);
  lblOutcome->setText(words);
  lblOutcome->setAccessibleName(words);
  txtFind->setAccessibleDescription(words.isEmpty() ? line : words + QStringLiteral(": ") + line);
}

/// All other keys end here as well: passed on to the view, they would move its caret.
void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    on_close();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (auto* button = qobject_cast<QToolButton*>(focusWidget())) {
      button->click();
    } else if (event->modifiers().testFlag(Qt::ControlModifier)) {
      on_select();
    } else {
      on_next(event->modifiers().testFlag(Qt::ShiftModifier) ? Direction::Newer : Direction::Older);
    }
  }
  event->accept();
}

void FindBar::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), theme::kChrome);
}

}  // namespace korvanta

#include "ui/kit/mnemonics.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

namespace korvanta {
namespace {

/// The index of the letter to use, or -1.
qsizetype MnemonicIndex(const QString& caption, const QString& taken) {
  for (const bool at_word_start : {true, false}) {
    for (qsizetype i = 0; i < caption.size(); ++i) {
      const bool starts_word = i == 0 || caption[i - 1].isSpace();
      if (caption[i].isLetter() && (starts_word || !at_word_start) &&
          !taken.contains(caption[i], Qt::CaseInsensitive)) {
        return i;
      }
    }
  }
  return -1;
}

}  // namespace

void AddMnemonics(QMenu& menu) {
  QString taken;
  for (const QAction* action : menu.actions()) {
    taken += QKeySequence::mnemonic(action->text()).toString().right(1);
  }
  for (QAction* action : menu.actions()) {
    const QString caption = action->text();
    const qsizetype place = MnemonicIndex(caption, taken);
    if (place >= 0 && QKeySequence::mnemonic(caption).isEmpty()) {
      taken += caption[place];
      action->setText(QString(caption).insert(place, QLatin1Char('&')));
    }
  }
}

}  // namespace korvanta

#include "ui/frmNews.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme.h"

namespace korvanta {
namespace {

constexpr qsizetype kLongWord = 500;

/// More than anyone reads as news; the toolkit lays out all of it before it shows the first line.
constexpr qsizetype kNewsLength = qsizetype{64} * 1024;

bool HasLongWord(const QString& text) {
  qsizetype length = 0;
  return std::any_of(text.begin(), text.end(), [&length](QChar c) {
    length = c.isSpace() ? 0 : length + 1;
    return length > kLongWord;
  });
}

}  // namespace

frmNews::frmNews(News& news, QWidget* owner)
    : SideWindow(news.window(), owner),
      news_(news),
      frmBorder(new QFrame),
      rbNews(new QPlainTextEdit),
      btnClose(new QPushButton(QStringLiteral("&Close"))) {
  setObjectName(QStringLiteral("frmNews"));
  setWindowTitle(QStringLiteral("News"));
  resize(75 * theme::kUnit, 60 * theme::kUnit);

  NameControl(*frmBorder, QStringLiteral("frmBorder"), QStringLiteral("News"));
  NameControl(*rbNews, QStringLiteral("rbNews"), QStringLiteral("News"));
  rbNews->setReadOnly(true);
  rbNews->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  rbNews->setUndoRedoEnabled(false);
  rbNews->setTabChangesFocus(true);
  rbNews->verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll news"));
  rbNews->document()->setDocumentMargin(theme::kUnit);
  NameControl(*btnClose, QStringLiteral("btnClose"), QStringLiteral("Close"));

  auto* border = new QVBoxLayout(frmBorder);
  border->setContentsMargins(0, 0, 0, 0);
  border->addWidget(rbNews);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(btnClose);

  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(2 * theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit);
  all->setSpacing(2 * theme::kUnit);
  all->addWidget(frmBorder, 1);
  all->addLayout(buttons);
  btnClose->setDefault(true);  // the dialog hears of it only from a button that it has

  connect(btnClose, &QPushButton::clicked, this, [this] { news_.window().Unload(); });
  news_.on_changed = [self = QPointer(this)] {
    if (self) {
      self->Refresh();
    }
  };
  Refresh();
  rbNews->setFocus();
}

void frmNews::Refresh() {
  const QString text = Head(ToQString(news_.rbNews()), kNewsLength);
  // Breaking a word between its letters takes the square of its length, unless any place will do.
  rbNews->clear();
  rbNews->setWordWrapMode(HasLongWord(text) ? QTextOption::WrapAnywhere
                                            : QTextOption::WrapAtWordBoundaryOrAnywhere);
  rbNews->setPlainText(text);
}

}  // namespace korvanta

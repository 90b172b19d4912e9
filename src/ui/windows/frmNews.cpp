#include "ui/windows/frmNews.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QScrollBar>
#include <QVBoxLayout>

#include "ui/kit/plain_text.h"
#include "ui/kit/theme.h"

namespace korvanta {

frmNews::frmNews(News& news, QWidget* owner)
    : SideWindow(news.window(), owner),
      news_(news),
      frmBorder(new QFrame),
      rbNews(new MessageViewWidget(text_)),
      btnClose(new QPushButton(QStringLiteral("&Close"))) {
  setObjectName(QStringLiteral("frmNews"));
  setWindowTitle(QStringLiteral("News"));
  resize(75 * theme::kUnit, 60 * theme::kUnit);

  NameControl(*frmBorder, QStringLiteral("frmBorder"), QStringLiteral("News"));
  NameControl(*rbNews, QStringLiteral("rbNews"), QStringLiteral("News"));
  rbNews->verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll news"));
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
      self->text_.ShowText(self->news_.rbNews());
    }
  };
  text_.ShowText(news_.rbNews());
  rbNews->setFocus();
}

/// The view goes before its text does.
frmNews::~frmNews() { delete rbNews; }

}  // namespace korvanta

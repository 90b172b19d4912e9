#include "ui/windows/frmNews.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>

#include "ui/kit/controls.h"
#include "ui/kit/theme.h"

namespace korvanta {

frmNews::frmNews(News& news, QWidget* owner)
    : SideWindow(news.window(), owner),
      news_(news),
      frmBorder(new QFrame),
      rbNews(new MessageViewWidget(text_)),
      btnClose(MakeButton("btnClose", QStringLiteral("&Close"))) {
  setObjectName(QStringLiteral("frmNews"));
  setWindowTitle(QStringLiteral("News"));
  resize(75 * theme::kUnit, 60 * theme::kUnit);

  NameControl(*frmBorder, "frmBorder", QStringLiteral("News"));
  NameControl(*rbNews, "rbNews", QStringLiteral("News"));
  rbNews->verticalScrollBar()->setAccessibleName(QStringLiteral("Scroll news"));

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

  connect(btnClose, &QPushButton::clicked, this, [this] { news_.window().Unload(); });
  Refresh();
  rbNews->setFocus();
}

void frmNews::Refresh() { text_.ShowText(news_.rbNews()); }

/// The view draws from the text, so it is deleted first.
frmNews::~frmNews() { delete rbNews; }

}  // namespace korvanta

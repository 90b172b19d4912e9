/// The news window on the screen.
#pragma once

#include <QFrame>
#include <QPlainTextEdit>
#include <QPushButton>

#include "lobby/news.h"
#include "ui/side_window.h"

namespace korvanta {

class frmNews : public SideWindow {
 public:
  frmNews(News& news, QWidget* owner);

 private:
  void Refresh();

  News& news_;
  QFrame* frmBorder;
  QPlainTextEdit* rbNews;
  QPushButton* btnClose;
};

}  // namespace korvanta

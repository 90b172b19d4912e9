/// The news window.
#pragma once

#include <QFrame>
#include <QPushButton>

#include "lobby/message_view.h"
#include "lobby/news.h"
#include "ui/message_view/message_view_widget.h"
#include "ui/windows/side_window.h"

namespace korvanta {

class frmNews : public SideWindow {
 public:
  frmNews(News& news, QWidget* owner);
  frmNews(const frmNews&) = delete;
  frmNews& operator=(const frmNews&) = delete;
  ~frmNews() override;

  void Refresh();

 private:
  News& news_;
  const Options no_options_;
  MessageView text_{no_options_};  // the toolkit's own text view takes seconds for a long text
  QFrame* frmBorder;
  MessageViewWidget* rbNews;
  QPushButton* btnClose;
};

}  // namespace korvanta

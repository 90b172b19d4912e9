/// The main window: menu bar, research board, message view, chat line and online list.
#pragma once

#include <QList>
#include <QMainWindow>
#include <QPoint>
#include <cstdint>

#include "client/client.h"
#include "client/menus.h"
#include "ui/kit/popup_menu.h"

class QAction;
class QMenu;
class QPushButton;

namespace korvanta {

class BoardWidget;
class ChatBox;
class MessageViewWidget;
class OnlineListView;

class frmMain : public QMainWindow {
 public:
  /// Hidden until the client shows it. The client must outlive it.
  explicit frmMain(Client& client);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct BoundAction {
    const MenuItem* item;
    QAction* action;
  };

  QWidget* MakeContent();
  void MakeMenuBar();
  QMenu* MakeMenu(const Menu& menu);
  void BindClient();
  void RefreshMenus();
  void RefreshChatInput();
  void ShowBoxMenu(TopicCode topic, std::int16_t level, QPoint global_pos, OpenedBy opened_by);
  void ShowPlayerMenu(QPoint global_pos, OpenedBy opened_by);
  bool IsMenuShortcut(const QKeyEvent& event) const;

  Client& client_;
  QList<BoundAction> actions_;
  BoardWidget* board;
  MessageViewWidget* rbMessages;
  ChatBox* cboSend;
  QPushButton* btnSend;
  OnlineListView* lstOnline;
  QMenu* mPopMenu;
  QMenu* mnuWarMenu;
};

}  // namespace korvanta

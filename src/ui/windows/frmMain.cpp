#include "ui/windows/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "ui/board/board_widget.h"
#include "ui/kit/controls.h"
#include "ui/kit/mnemonics.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"
#include "ui/message_view/message_view_widget.h"
#include "ui/online_list/online_list_view.h"
#include "ui/windows/chat_box.h"
#include "ui/windows/fitting_area.h"
#include "ui/windows/frmLogin.h"
#include "ui/windows/frmNews.h"
#include "ui/windows/frmStats.h"
#include "ui/windows/frmTournament.h"
#include "ui/windows/window_binding.h"

namespace korvanta {
namespace {

/// Logical pixels of everything below the menu bar.
constexpr QSize kContentSize{1120, 660};
constexpr int kOnlineListWidth = 316;
constexpr int kSendWidth = 112;
constexpr int kBoxMargin = 8 * theme::kUnit;  ///< kept visible around the centre of a box

}  // namespace

frmMain::frmMain(Client& client) : client_(client) {
  setObjectName(QStringLiteral("frmMain"));
  MakeMenuBar();
  mPopMenu = MakeMenu(PopMenu());
  mPopMenu->setAccessibleName(QStringLiteral("Topic"));
  mnuWarMenu = MakeMenu(WarMenu());
  mnuWarMenu->setAccessibleName(QStringLiteral("Player"));
  RefreshMenus();

  // The content keeps its size and position whatever the size of the window.
  auto* area = new FittingArea(MakeContent(), false);
  setCentralWidget(area);
  board->on_current_box = [this, area](QPoint middle) {
    const QPoint place = board->mapTo(area->widget(), middle);
    area->ensureVisible(place.x(), place.y(), kBoxMargin, kBoxMargin);
  };
  area->FitWindow(kContentSize + QSize(0, menuBar()->sizeHint().height()));

  BindClient();
  cboSend->setFocus();
}

QWidget* frmMain::MakeContent() {
  auto* content = new QWidget;
  content->setFixedSize(kContentSize);
  board = new BoardWidget(client_.research_board, content);
  rbMessages = new MessageViewWidget(client_.message_view, content);
  cboSend = new ChatBox(client_.chat_input, content);
  btnSend = MakeButton("btnSend", QStringLiteral("Trans&mit"));
  btnSend->setDefault(true);
  lstOnline = new OnlineListView(client_.online_list, content);

  cboSend->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  btnSend->setFixedWidth(kSendWidth);
  lstOnline->setFixedWidth(kOnlineListWidth);
  auto* lobby = new QGridLayout;
  lobby->setContentsMargins(2 * theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit);
  lobby->setHorizontalSpacing(theme::kUnit);
  lobby->setVerticalSpacing(theme::kUnit + theme::kUnit / 2);
  lobby->addWidget(rbMessages, 0, 0, 1, 2);
  lobby->addWidget(cboSend, 1, 0);
  lobby->addWidget(btnSend, 1, 1);
  lobby->setColumnMinimumWidth(2, 0);
  lobby->addWidget(lstOnline, 0, 3, 2, 1);
  lobby->setColumnStretch(0, 1);
  lobby->setRowStretch(0, 1);

  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(board);
  column->addLayout(lobby, 1);

  const std::pair<Qt::Key, QWidget*> shortcuts[] = {
      {Qt::Key_1, board},
      {Qt::Key_2, rbMessages},
      {Qt::Key_3, cboSend},
      {Qt::Key_4, lstOnline},
  };
  for (const auto& [key, control] : shortcuts) {
    new QShortcut(Qt::ALT | key, control,
                  [control = control] { control->setFocus(Qt::ShortcutFocusReason); });
  }
  setTabOrder(board, rbMessages);
  setTabOrder(rbMessages, cboSend);
  setTabOrder(cboSend, btnSend);
  setTabOrder(btnSend, lstOnline);
  return content;
}

void frmMain::MakeMenuBar() {
  menuBar()->setAccessibleName(QStringLiteral("Menu"));
  for (const Menu& menu : MenuBar()) {
    menuBar()->addMenu(MakeMenu(menu));
  }
}

QMenu* frmMain::MakeMenu(const Menu& menu) {
  auto* result = new QMenu(ToQString(menu.caption), this);
  result->setObjectName(ToQString(menu.name));
  result->setAccessibleName(ToQString(menu.caption).remove(QLatin1Char('&')));
  for (const MenuItem& item : menu.items) {
    if (item.IsSeparator()) {
      result->addSeparator()->setObjectName(ToQString(item.name));
      continue;
    }
    QAction* action = result->addAction(ToQString(item.caption));
    action->setObjectName(ToQString(item.name));
    action->setShortcut(QKeySequence(ToQString(item.shortcut), QKeySequence::PortableText));
    action->setAutoRepeat(false);
    action->setCheckable(item.option != nullptr);
    connect(action, &QAction::triggered, this, [this, &item] { item.click(client_); });
    actions_.push_back({&item, action});
  }
  return result;
}

void frmMain::BindClient() {
  MainWindow& window = client_.main_window;
  setWindowTitle(ToQString(window.title()));
  window.on_title_changed = [this] { setWindowTitle(ToQString(client_.main_window.title())); };
  window.on_show = [this] {
    RefreshMenus();
    show();
  };
  window.on_close = [this] { close(); };
  window.on_menus_changed = [this] {
    RefreshMenus();
    rbMessages->viewport()->update();
  };
  client_.chat_input.on_changed = [this] { RefreshChatInput(); };
  connect(btnSend, &QPushButton::clicked, this, [this] { client_.chat_input.SendChatLine(); });
  connect(cboSend->lineEdit(), &QLineEdit::returnPressed, btnSend, &QPushButton::click);
  qApp->installEventFilter(this);
  board->on_box_menu = [this](TopicCode topic, std::int16_t level, QPoint global_pos,
                              OpenedBy opened_by) {
    ShowBoxMenu(topic, level, global_pos, opened_by);
  };
  lstOnline->on_menu = [this](QPoint global_pos, OpenedBy opened_by) {
    ShowPlayerMenu(global_pos, opened_by);
  };

  BindWindow<frmLogin>(client_.login_dialog, this);
  WindowLife& login = client_.login_dialog.window();
  login.on_unload = [this, unload = login.on_unload] {
    unload();
    cboSend->setFocus();
  };
  BindWindow<frmStats>(client_.statistics, this);
  BindWindow<frmNews>(client_.news, this);
  BindWindow<frmTournament>(client_.tournament, this);
}

void frmMain::RefreshMenus() {
  for (const auto& [item, action] : actions_) {
    action->setText(ToQString(CaptionOf(*item, client_)));
    action->setChecked(item->option != nullptr && client_.options.*(item->option));
  }
  for (QMenu* menu : findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
    AddMnemonics(*menu);
  }
}

void frmMain::RefreshChatInput() {
  cboSend->Refresh();
  btnSend->setEnabled(client_.chat_input.IsSendEnabled());
}

void frmMain::ShowBoxMenu(TopicCode topic, std::int16_t level, QPoint global_pos,
                          OpenedBy opened_by) {
  client_.board_actions.BoxRightClicked(topic, level);
  OpenMenu(*mPopMenu, global_pos, opened_by);
}

void frmMain::ShowPlayerMenu(QPoint global_pos, OpenedBy opened_by) {
  if (client_.board_actions.PlayerRightClicked()) {
    OpenMenu(*mnuWarMenu, global_pos, opened_by);
  }
}

void frmMain::closeEvent(QCloseEvent* event) {
  client_.CloseMainWindow();
  event->accept();
  QApplication::quit();
}

/// A menu's shortcut takes precedence over the same editing keys of the window's controls.
bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride || !watched->isWidgetType() ||
      static_cast<QWidget*>(watched)->window() != this ||
      !IsMenuShortcut(*static_cast<QKeyEvent*>(event))) {
    return false;
  }
  event->ignore();
  return true;
}

bool frmMain::IsMenuShortcut(const QKeyEvent& event) const {
  const QKeySequence pressed(event.keyCombination());
  for (const auto& [item, action] : actions_) {
    if (action->shortcut() == pressed) {
      return true;
    }
  }
  return false;
}

}  // namespace korvanta

/// What holds for every window and control, seen in one walk over all of them: names for assistive
/// programs, captions, mnemonics, the order of Tab, default buttons, and how windows come and go.
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <map>

#include "tests/ui/main_window_test.h"
#include "ui/desktop/qt_message_box.h"

namespace korvanta {
namespace {

bool TakesTab(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr;
}

/// What is read on a control or beside it, without the mark of its mnemonic.
QString CaptionOf(const QWidget& control) {
  QString caption = control.property("text").toString() + control.property("title").toString();
  if (const auto* list = qobject_cast<const QTreeView*>(&control)) {
    for (int column = 0; column < list->model()->columnCount(); ++column) {
      caption += list->model()->headerData(column, Qt::Horizontal).toString() + QLatin1Char('|');
    }
  } else if (const auto* tabs = qobject_cast<const QTabBar*>(&control)) {
    for (int tab = 0; tab < tabs->count(); ++tab) {
      caption += tabs->tabText(tab) + QLatin1Char('|');
    }
  }
  for (const QLabel* label : control.window()->findChildren<QLabel*>()) {
    caption += label->buddy() == &control ? label->text() : QString();
  }
  return caption.remove(QLatin1Char('&'));
}

/// What assistive programs find in one window or menu: whatever takes the keyboard has a name and a
/// role, and no two controls share a key. What has no key tells in its tool tip which one does the
/// same.
class Walk {
 public:
  explicit Walk(const QWidget& window) : title_(window.accessibleName() + window.windowTitle()) {
    Visit(window);
  }

  void Visit(const QWidget& window) {
    Visit(*QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&window)));
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (qobject_cast<QComboBox*>(label->buddy()) != nullptr && label->window() == &window &&
          label->isVisible()) {
        owners_[QKeySequence::mnemonic(label->text()).toString()].append(label->text());
      }
    }
    for (const QShortcut* shortcut : window.findChildren<QShortcut*>()) {
      AddShortcut(shortcut->parent(), window, shortcut->key());
    }
    for (const QAction* action : window.findChildren<QAction*>()) {
      const auto* menu = qobject_cast<const QMenu*>(action->parent());
      AddShortcut(menu == nullptr ? action->parent() : menu->parent(), window, action->shortcut());
    }
  }
  void ExpectDistinctKeys() const {
    for (const auto& [key, owners] : owners_) {
      EXPECT_EQ(owners.size(), 1) << key.toStdString() << " in " << title_.toStdString() << ": "
                                  << owners.join(QLatin1Char(' ')).toStdString();
    }
    for (const auto& [name, tip] : keyless_) {
      EXPECT_TRUE(std::any_of(owners_.begin(), owners_.end(),
                              [tip = tip](const auto& entry) {
                                return tip.contains(entry.first) || tip == QLatin1String("Esc");
                              }))
          << name.toStdString() << " has no key in " << title_.toStdString();
    }
  }

 private:
  void AddShortcut(const QObject* home, const QWidget& window, const QKeySequence& key) {
    if (static_cast<const QWidget*>(home)->window() == &window && !key.isEmpty()) {
      owners_[key.toString()].append(home->objectName());
    }
  }
  void Visit(QAccessibleInterface& node) {
    const QAccessible::Role role = node.role();
    const QString name = node.text(QAccessible::Name);
    if (role != QAccessible::Separator &&
        (node.state().focusable || role == QAccessible::ListItem)) {
      EXPECT_NE(name.toStdString(), "") << role << " in " << title_.toStdString();
      EXPECT_NE(role, QAccessible::Client);
      EXPECT_NE(role, QAccessible::NoRole);
    }
    const bool is_one_of_many = role != QAccessible::ComboBox && role != QAccessible::PageTabList;
    const QString key = is_one_of_many ? node.text(QAccessible::Accelerator) : QString();
    const bool needs_key = role == QAccessible::Button || role == QAccessible::CheckBox ||
                           role == QAccessible::PageTab;
    if (!node.state().invisible && !key.isEmpty()) {
      owners_[key].append(name);
    } else if (!node.state().invisible && needs_key) {
      keyless_.append({name, node.text(QAccessible::Description)});
    }
    for (int i = 0; i < node.childCount(); ++i) {
      if (QAccessibleInterface& child = *node.child(i); child.role() != QAccessible::PopupMenu) {
        Visit(child);
      }
    }
  }

  QString title_;
  std::map<QString, QStringList> owners_;
  QList<std::pair<QString, QString>> keyless_;
};

void ExpectNamesAndKeys(const QWidget& window) {
  Walk walk(window);
  if (window.windowType() == Qt::Tool) {  // the keys of its owner hold there too
    walk.Visit(*window.parentWidget());
  }
  walk.ExpectDistinctKeys();
  for (const auto* area : window.findChildren<QAbstractScrollArea*>()) {
    if (area->window() == &window && window.windowType() != Qt::Popup &&
        area->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) {
      EXPECT_NE(area->verticalScrollBar()->accessibleName().toStdString(), "")
          << area->objectName().toStdString();
    }
  }
}

/// The keyboard goes to the right, or below all of what it leaves.
void ExpectReadingOrder(const QWidget& window) {
  QList<QWidget*> order;
  QWidget* widget = const_cast<QWidget*>(&window);
  while ((widget = widget->nextInFocusChain()) != &window) {
    if (TakesTab(*widget) && widget->isVisible() && widget->window() == &window) {
      order.append(widget);
    }
  }
  ASSERT_GT(order.size(), 1) << window.windowTitle().toStdString();
  for (qsizetype i = 1; i < order.size(); ++i) {
    const QRect before(order[i - 1]->mapTo(&window, QPoint()), order[i - 1]->size());
    const QPoint after = order[i]->mapTo(&window, QPoint());
    EXPECT_TRUE(after.x() > before.left() || after.y() > before.bottom())
        << order[i - 1]->objectName().toStdString() << ", then "
        << order[i]->objectName().toStdString();
  }
}

void ExpectMnemonics(const QMenu& menu) {
  QStringList seen;
  for (const QAction* action : menu.actions()) {
    if (!action->isSeparator()) {
      seen.append(QKeySequence::mnemonic(action->text()).toString());
      EXPECT_FALSE(seen.back().isEmpty()) << action->text().toStdString();
    }
  }
  EXPECT_EQ(seen.removeDuplicates(), 0) << menu.accessibleName().toStdString();
  Walk{menu};
}

void AskForMenu(QWidget& widget) {
  QContextMenuEvent event(QContextMenuEvent::Keyboard, widget.rect().center(),
                          widget.mapToGlobal(widget.rect().center()));
  QApplication::sendEvent(&widget, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr) << widget.objectName().toStdString();
  ExpectMnemonics(*menu);
  menu->close();
}

/// All windows, of an administrator.
class EveryWindow : public MainWindowTest {
 protected:
  EveryWindow() {
    LogIn("90");
    for (const auto& [name, life] : side_windows) {
      life->Show();
    }
  }
};

TEST_F(EveryWindow, ControlsHaveNamesMnemonicsOfTheirOwnAndAnOrderForTab) {
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  QWidgetList windows{&window};
  for (const auto& [name, life] : side_windows) {
    windows.append(&Get(name));
  }
  auto& tabs = Get<QTabBar>("TStrip");
  ASSERT_EQ(tabs.count(), 3);
  for (int tab = 2; tab >= 0; --tab) {
    tabs.setCurrentIndex(tab);
    for (QWidget* each : std::exchange(windows, tab == 0 ? windows : QWidgetList{tabs.window()})) {
      ExpectNamesAndKeys(*each);
      if (each->objectName() != QLatin1String("frmLogin")) {  // keeps the order that players know
        ExpectReadingOrder(*each);
      }
    }
  }
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    ExpectMnemonics(*menu);
  }
  for (QComboBox* box : window.findChildren<QComboBox*>()) {
    box->addItem(QStringLiteral("an item"));
    box->showPopup();
    ExpectNamesAndKeys(*box->view()->window());
    box->hidePopup();
  }
  for (const char* name : {"rbMessages", "cboUsernames"}) {
    AskForMenu(Get(name));
  }
  QTimer::singleShot(0, [] {
    ExpectNamesAndKeys(*QApplication::activeModalWidget());
    QApplication::activeModalWidget()->close();
  });
  EXPECT_FALSE(QtMessageBox().Ask("Really?", "Korvanta"));
}

TEST_F(EveryWindow, CaptionsAreReadAloud) {
  const std::pair<const char*, const char*> cases[] = {
      {"frmLogin",
       "frmValues=Connection Values:,cboServer=Server:,cboUsernames=Username:,"
       "txtPassword=Password:,btnLogin=Login,chkSave=Save Password,btnClear=Clear,"
       "btnCancel=Cancel"},
      {"frmNews", "btnClose=Close"},
      {"frmStats",
       "btnLoad=Search User,frmUserData=Statistics for 'none',rbScore=Total Score,"
       "txtAlliance=Alliance,txtID=Identification #,txtWins=Game Wins,"
       "txtAllianceWins=Alliance Wins,txtPlayed=Games Played,txtResearch=Total Research,"
       "txtLost=Research Lost,txtDestroy=Enemy Research Destroyed,txtBlocks=Total Blocks,"
       "txtScrew=Alliance Screw-Overs,frmAward=Awards for 'none',lstAwards=Awards|"},
      {"frmTournament",
       "TStrip=Info|Teams|Admin|,fInfo=Information,iEntryFee=Entry Fee,txtPurse=Current Purse,"
       "iMaxTeams=Current Teams,iMaxPlayers=Current Players,cmbTeam=Team Name,"
       "txtPassword=Team Password,Command4=Create/Join,fTeams=Teams,lstTeams=Team Information|,"
       "KickPlayer=Kick Player,btnDisband=Disband Team,fAdmin=Admin,EntryFee=Entry Fee,"
       "MaxTeams=Max Teams,MaxPlayers=Max Players,Command1=Start Tournament,"
       "Command2=Set Tournament Game,Command3=End Tournament"},
      {"fittingArea", "lstOnline=Name|Level|,btnSend=Transmit"},
  };
  for (const auto& [place, controls] : cases) {
    for (const QString& control : QString::fromLatin1(controls).split(QLatin1Char(','))) {
      const QString caption = control.section(QLatin1Char('='), 1);
      const auto* found = Get(place).findChild<QWidget*>(control.section(QLatin1Char('='), 0, 0));
      ASSERT_NE(found, nullptr) << control.toStdString();
      EXPECT_EQ(CaptionOf(*found), caption);
      EXPECT_TRUE(caption.endsWith(QLatin1Char('|')) || found->accessibleName() == caption)
          << control.toStdString();
    }
  }
}

TEST_F(EveryWindow, StatisticsStandInOrderAndAwaitAName) {
  Receive("[bre]Ann\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\00111\00224");
  Open("frmStats");
  EXPECT_EQ(CaptionOf(Get("frmAward")), QStringLiteral("Awards for 'Ann'"));
  EXPECT_EQ(Get<QTreeView>("lstAwards").model()->rowCount(), 2);
  EXPECT_TRUE(Get("UserInput").hasFocus());
  int y = 0;
  for (const StatisticsField& field : kStatisticsFields) {
    const auto& box = Get<QLineEdit>(std::string(field.control));
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_GT(box.y(), std::exchange(y, box.y())) << field.control;
  }
}

TEST_F(EveryWindow, EnterPressesTheFocusedButtonOrElseTheDefaultOne) {
  const std::map<std::string, std::string> defaults{{"frmLogin", "btnLogin"},
                                                    {"frmStats", "btnLoad"}};
  for (const auto& [name, life] : side_windows) {
    QWidget& place = Open(name);
    std::string pressed;
    for (QPushButton* button : place.findChildren<QPushButton*>()) {
      button->disconnect(SIGNAL(clicked(bool)));
      QObject::connect(button, &QPushButton::clicked, button,
                       [button, &pressed] { pressed += button->objectName().toStdString(); });
    }
    for (QWidget* control : place.findChildren<QWidget*>()) {
      if (TakesTab(*control) && control->isVisible()) {
        const bool is_button = qobject_cast<QPushButton*>(control) != nullptr;
        const std::string own = control->objectName().toStdString();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        const auto by_default = defaults.find(name);
        EXPECT_EQ(std::exchange(pressed, {}), is_button                      ? own
                                              : by_default != defaults.end() ? by_default->second
                                                                             : "")
            << name << ": " << own;
      }
    }
  }
}

TEST_F(EveryWindow, SideWindowsComeForwardWhenShownAgainAndCloseByEscOrTheirFrame) {
  window.move(window.pos() + QPoint(90, 70));
  for (const auto& [name, life] : side_windows) {
    QWidget* const dialog = &Get(name);
    EXPECT_EQ(dialog->windowHandle()->transientParent(), window.windowHandle()) << name;
    EXPECT_FALSE(dialog->isModal()) << name;
    window.activateWindow();
    EXPECT_TRUE(ComesForward(window)) << name;
    EXPECT_EQ(&Open(name), dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(IsOpen(name));
    Open(name);
    const QPoint off = Get(name).frameGeometry().center() - window.frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 8) << name << " is not centred";
    if (name == "frmTournament") {
      EXPECT_EQ(Get(name).windowType(), Qt::Tool);
      EXPECT_FALSE(Get(name).windowFlags() & Qt::WindowMinMaxButtonsHint);
      EXPECT_EQ(Get(name).minimumSize(), Get(name).maximumSize());
    }
    Get(name).close();
    EXPECT_FALSE(IsOpen(name));
  }
}

}  // namespace
}  // namespace korvanta

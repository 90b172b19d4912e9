/// What holds for every window and control, seen in one walk over all of them: names for assistive
/// programs, captions, mnemonics, the order of Tab, default buttons, and how windows come and go.
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
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

/// The keys that work in a window or menu, with what each is for.
using Keys = std::map<QString, QStringList>;

/// Whatever takes the keyboard has a name and a role.
void AddControls(QAccessibleInterface& node, Keys& keys) {
  const QAccessible::Role role = node.role();
  const QString name = node.text(QAccessible::Name);
  if (role != QAccessible::Separator && (node.state().focusable || role == QAccessible::ListItem)) {
    EXPECT_FALSE(name.isEmpty()) << role;
    EXPECT_TRUE(role != QAccessible::Client && role != QAccessible::NoRole) << name.toStdString();
  }
  // The key of a combo box opens its list, and that of the tabs is the chosen tab's.
  const bool has_own = role != QAccessible::ComboBox && role != QAccessible::PageTabList;
  const QString key = has_own ? node.text(QAccessible::Accelerator) : QString();
  if (!node.state().invisible && !key.isEmpty()) {
    keys[key].append(name);
  }
  for (int i = 0; i < node.childCount(); ++i) {
    if (QAccessibleInterface& child = *node.child(i); child.role() != QAccessible::PopupMenu) {
      AddControls(child, keys);
    }
  }
}

void AddKeys(const QWidget& window, Keys& keys) {
  AddControls(*QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&window)), keys);
  const auto add = [&](const QObject* home, const QKeySequence& key) {
    if (static_cast<const QWidget*>(home)->window() == &window && !key.isEmpty()) {
      keys[key.toString()].append(home->objectName());
    }
  };
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (qobject_cast<QComboBox*>(label->buddy()) != nullptr && label->isVisible()) {
      add(label, QKeySequence::mnemonic(label->text()));
    }
  }
  for (const QShortcut* shortcut : window.findChildren<QShortcut*>()) {
    add(shortcut->parent(), shortcut->key());
  }
  for (const QAction* action : window.findChildren<QAction*>()) {
    const auto* menu = qobject_cast<const QMenu*>(action->parent());
    add(menu == nullptr ? action->parent() : menu->parent(), action->shortcut());
  }
}

/// Each key is for one thing.
void ExpectNamesAndKeys(const QWidget& window) {
  SCOPED_TRACE((window.accessibleName() + window.windowTitle()).toStdString());
  Keys keys;
  AddKeys(window, keys);
  if (window.windowType() == Qt::Tool) {  // the keys of its owner hold there too
    AddKeys(*window.parentWidget(), keys);
  }
  if (const auto* menu = qobject_cast<const QMenu*>(&window)) {
    keys = {};  // an open menu answers to its mnemonics alone
    for (const QAction* action : menu->actions()) {
      const QString mnemonic = QKeySequence::mnemonic(action->text()).toString();
      EXPECT_EQ(mnemonic.isEmpty(), action->isSeparator()) << action->text().toStdString();
      if (!action->isSeparator()) {
        keys[mnemonic].append(action->text());
      }
    }
  }
  keys[QStringLiteral("Esc")].append(QStringLiteral("closes"));
  for (const auto& [key, uses] : keys) {
    EXPECT_EQ(uses.size(), 1) << key.toStdString() << ": " << uses.join(u' ').toStdString();
  }
  for (const auto* area : window.findChildren<QAbstractScrollArea*>()) {
    EXPECT_FALSE(area->window() == &window && window.windowType() != Qt::Popup &&
                 area->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff &&
                 area->verticalScrollBar()->accessibleName().isEmpty())
        << area->objectName().toStdString();
  }
}

TEST_F(AllWindowsTest, ControlsHaveNamesAndKeysOfTheirOwn) {
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  QWidgetList windows{&window};
  for (const auto& [name, life] : side_windows) {
    windows.append(&Get(name));
  }
  auto& tabs = Get<QTabBar>("TStrip");
  for (int tab = 2; tab >= 0; --tab) {
    tabs.setCurrentIndex(tab);
    for (QWidget* each : std::exchange(windows, {tabs.window()})) {
      ExpectNamesAndKeys(*each);
    }
  }
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    ExpectNamesAndKeys(*menu);
  }
  for (QComboBox* box : window.findChildren<QComboBox*>()) {
    box->addItem(QStringLiteral("an item"));
    box->showPopup();
    ExpectNamesAndKeys(*box->view()->window());
    box->hidePopup();
  }
  for (const char* name : {"rbMessages", "cboUsernames"}) {
    auto& control = Get(name);
    const QPoint middle = control.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, control.mapToGlobal(middle));
    QApplication::sendEvent(&control, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr) << name;
    ExpectNamesAndKeys(*menu);
    menu->close();
  }
  QTimer::singleShot(0, [] {
    ExpectNamesAndKeys(*QApplication::activeModalWidget());
    QApplication::activeModalWidget()->close();
  });
  EXPECT_FALSE(QtMessageBox().Ask("Really?", "Korvanta"));
}

TEST_F(AllWindowsTest, CaptionsAreReadAloud) {
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
       "txtScrew=Alliance Screw-Overs,frmAward=Awards for 'none',lstAwards=Awards"},
      {"frmTournament",
       "TStrip=Tournament Window,fInfo=Information,iEntryFee=Entry Fee,txtPurse=Current Purse,"
       "iMaxTeams=Current Teams,iMaxPlayers=Current Players,cmbTeam=Team Name,"
       "txtPassword=Team Password,Command4=Create/Join,fTeams=Teams,lstTeams=Team Information,"
       "KickPlayer=Kick Player,btnDisband=Disband Team,fAdmin=Admin,EntryFee=Entry Fee,"
       "MaxTeams=Max Teams,MaxPlayers=Max Players,Command1=Start Tournament,"
       "Command2=Set Tournament Game,Command3=End Tournament"},
      {"fittingArea", "rbMessages=Messages,cboSend=Chat line,btnSend=Transmit"},
  };
  for (const auto& [place, controls] : cases) {
    for (const QString& control : QString::fromLatin1(controls).split(QLatin1Char(','))) {
      const QStringList parts = control.split(QLatin1Char('='));
      const auto* found = Get(place).findChild<QWidget*>(parts[0]);
      ASSERT_NE(found, nullptr) << control.toStdString();
      EXPECT_EQ(found->accessibleName(), parts[1]);
    }
  }
  Receive("[bre]Ann\0011\0012\0013\0014\0015\0016\0017\0018\0019\00110\00111\00111\00224");
  for (const StatisticsField& field : kStatisticsFields) {
    const auto& box = Get<QLineEdit>(field.control.data());
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_EQ(box.text(), QString::number(field.reply_field));
    EXPECT_EQ(box.cursorPosition(), 0);
  }
  EXPECT_EQ(Get<QTreeView>("lstAwards").model()->rowCount(), 2);
  const QAbstractItemModel& players = *Get<QTreeView>("lstOnline").model();
  EXPECT_EQ(players.headerData(0, Qt::Horizontal), QStringLiteral("Name"));
  EXPECT_EQ(players.headerData(1, Qt::Horizontal), QStringLiteral("Level"));
}

TEST_F(AllWindowsTest, TabGoesInTheOrderThatPlayersKnow) {
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  for (const char* order :
       {"ResearchBoard rbMessages txtFind btnOlder btnNewer btnCloseFind cboSend btnSend lstOnline",
        "cboServer cboUsernames txtPassword btnLogin chkSave btnClear btnCancel", "rbNews btnClose",
        ("UserInput btnLoad rbScore txtAlliance txtID txtWins txtAllianceWins txtPlayed "
         "txtResearch txtLost txtDestroy txtBlocks txtScrew lstAwards"),
        "TStrip iEntryFee txtPurse iMaxTeams iMaxPlayers cmbTeam txtPassword Command4"}) {
    const QStringList names = QString::fromLatin1(order).split(u' ');
    QWidget& first = Get(names[0].toStdString());
    first.window()->activateWindow();
    EXPECT_TRUE(ComesForward(*first.window()));
    first.setFocus();
    for (const QString& name : names) {
      EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(QApplication::focusWidget(), &first);
  }
}

TEST_F(AllWindowsTest, EnterPressesTheFocusedButtonOrElseTheDefaultOne) {
  const std::map<std::string, QString> defaults{{"frmLogin", QStringLiteral("btnLogin")},
                                                {"frmNews", QString()},
                                                {"frmStats", QStringLiteral("btnLoad")},
                                                {"frmTournament", QString()}};
  for (const auto& [name, by_default] : defaults) {
    QWidget& place = Open(name);
    QString pressed;
    for (QPushButton* button : place.findChildren<QPushButton*>()) {
      button->disconnect(SIGNAL(clicked(bool)));
      QObject::connect(button, &QPushButton::clicked, button,
                       [button, &pressed] { pressed += button->objectName(); });
    }
    for (QWidget* control : place.findChildren<QWidget*>()) {
      const bool takes_tab = (control->focusPolicy() & Qt::TabFocus) != 0;
      if (takes_tab && control->focusProxy() == nullptr && control->isVisible()) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        const bool is_button = qobject_cast<QPushButton*>(control) != nullptr;
        EXPECT_EQ(std::exchange(pressed, {}), is_button ? control->objectName() : by_default);
      }
    }
  }
}

TEST_F(AllWindowsTest, SideWindowsComeForwardWhenShownAgainAndCloseByEscOrTheirFrame) {
  const std::map<std::string, const char*> first_controls{{"frmLogin", "cboUsernames"},
                                                          {"frmNews", "rbNews"},
                                                          {"frmStats", "UserInput"},
                                                          {"frmTournament", "cmbTeam"}};
  window.move(window.pos() + QPoint(90, 70));
  for (const auto& [name, life] : side_windows) {
    SCOPED_TRACE(name);
    QWidget* const dialog = &Get(name);
    EXPECT_EQ(dialog->windowHandle()->transientParent(), window.windowHandle());
    window.activateWindow();
    EXPECT_TRUE(ComesForward(window));
    life->Show();
    EXPECT_TRUE(ComesForward(*dialog));
    EXPECT_EQ(&Get(name), dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(IsOpen(name));
    window.hide();
    QCoreApplication::processEvents();
    life->Show();
    life->Unload();
    life->Show();  // while the one before is still to be deleted
    DeleteClosedWindows();
    EXPECT_FALSE(Get(name).isVisible()) << "its place is not known yet";
    window.show();
    const QWidget& anew = Open(name);
    EXPECT_EQ(anew.focusWidget()->objectName(), QLatin1String(first_controls.at(name)));
    const QPoint off = anew.frameGeometry().center() - window.frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 8) << "not centred";
    if (name == "frmTournament") {
      EXPECT_EQ(anew.windowType(), Qt::Tool);
      EXPECT_FALSE(anew.windowFlags() & Qt::WindowMinMaxButtonsHint);
      EXPECT_EQ(anew.minimumSize(), anew.maximumSize());
    }
    Get(name).close();
    EXPECT_FALSE(IsOpen(name));
  }
  for (const char* reply : {"[nws]a", "[bre]b", "[tif]c"}) {
    Receive(reply);  // that nobody waits for
  }
}

TEST_F(AllWindowsTest, EveryWindowGoesWithTheMainWindow) {
  window.close();
  EXPECT_EQ(platform.settings.commits, 1);
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(widget->isVisible()) << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace korvanta

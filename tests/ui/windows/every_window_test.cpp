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

bool TakesTab(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr;
}

/// The keys that work in a window or menu, with what each is for, and the tool tips of the controls
/// that have none.
struct Keys {
  std::map<QString, QStringList> uses;
  QStringList tips;
};

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
    keys.uses[key].append(name);
  } else if (!node.state().invisible &&
             (role == QAccessible::Button || role == QAccessible::CheckBox ||
              role == QAccessible::PageTab)) {
    keys.tips.append(node.text(QAccessible::Description));
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
      keys.uses[key.toString()].append(home->objectName());
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

/// Each key is for one thing; what has none says in its tool tip which key does the same.
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
        keys.uses[mnemonic].append(action->text());
      }
    }
  }
  keys.uses[QStringLiteral("Esc")].append(QStringLiteral("closes"));
  for (const auto& [key, uses] : keys.uses) {
    EXPECT_EQ(uses.size(), 1) << key.toStdString() << ": " << uses.join(u' ').toStdString();
  }
  for (const QString& tip : keys.tips) {
    EXPECT_TRUE(std::any_of(keys.uses.begin(), keys.uses.end(),
                            [&tip](const auto& entry) { return tip.contains(entry.first); }))
        << "a control without a key: " << tip.toStdString();
  }
  for (const auto* area : window.findChildren<QAbstractScrollArea*>()) {
    if (area->window() == &window && window.windowType() != Qt::Popup &&
        area->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) {
      EXPECT_FALSE(area->verticalScrollBar()->accessibleName().isEmpty())
          << area->objectName().toStdString();
    }
  }
}

/// The keyboard goes to the right, or below all of what it leaves.
void ExpectReadingOrder(const QWidget& window) {
  const QWidget* before = nullptr;
  for (QWidget* next = window.nextInFocusChain(); next != &window;
       next = next->nextInFocusChain()) {
    if (!TakesTab(*next) || !next->isVisible() || next->window() != &window) {
      continue;
    }
    if (const QWidget* left = std::exchange(before, next)) {
      const QRect place(left->mapTo(&window, QPoint()), left->size());
      const QPoint after = next->mapTo(&window, QPoint());
      EXPECT_TRUE(after.x() > place.left() || after.y() > place.bottom())
          << left->objectName().toStdString() << ", then " << next->objectName().toStdString();
    }
  }
  EXPECT_NE(before, nullptr) << window.windowTitle().toStdString();
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
    for (QWidget* each : std::exchange(windows, {tabs.window()})) {
      ExpectNamesAndKeys(*each);
      if (each->objectName() != QLatin1String("frmLogin")) {  // keeps the order that players know
        ExpectReadingOrder(*each);
      }
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
       "txtScrew=Alliance Screw-Overs,frmAward=Awards for 'none',lstAwards=Awards"},
      {"frmTournament",
       "TStrip=Tournament Window,fInfo=Information,iEntryFee=Entry Fee,txtPurse=Current Purse,"
       "iMaxTeams=Current Teams,iMaxPlayers=Current Players,cmbTeam=Team Name,"
       "txtPassword=Team Password,Command4=Create/Join,fTeams=Teams,lstTeams=Team Information,"
       "KickPlayer=Kick Player,btnDisband=Disband Team,fAdmin=Admin,EntryFee=Entry Fee,"
       "MaxTeams=Max Teams,MaxPlayers=Max Players,Command1=Start Tournament,"
       "Command2=Set Tournament Game,Command3=End Tournament"},
      {"fittingArea", "btnSend=Transmit"},
  };
  for (const auto& [place, controls] : cases) {
    for (const QString& control : QString::fromLatin1(controls).split(QLatin1Char(','))) {
      const QStringList parts = control.split(QLatin1Char('='));
      const auto* found = Get(place).findChild<QWidget*>(parts[0]);
      ASSERT_NE(found, nullptr) << control.toStdString();
      EXPECT_EQ(found->accessibleName(), parts[1]);
      QString written = found->property("text").toString() + found->property("title").toString();
      for (const QLabel* label : found->window()->findChildren<QLabel*>()) {
        written += label->buddy() == found ? label->text() : QString();
      }
      EXPECT_TRUE(written.isEmpty() || written.remove(QLatin1Char('&')) == parts[1])
          << written.toStdString();
    }
  }
  QStringList headings;
  for (const auto& [list, column] :
       {std::pair{"lstOnline", 0}, {"lstOnline", 1}, {"lstAwards", 0}, {"lstTeams", 0}}) {
    const QAbstractItemModel& model = *Get<QTreeView>(list).model();
    headings.append(model.headerData(column, Qt::Horizontal).toString());
  }
  EXPECT_EQ(headings.join(QLatin1Char('|')), QStringLiteral("Name|Level|Awards|Team Information"));
}

TEST_F(EveryWindow, EnterPressesTheFocusedButtonOrElseTheDefaultOne) {
  const std::map<std::string, QString> defaults{{"frmLogin", QStringLiteral("btnLogin")},
                                                {"frmStats", QStringLiteral("btnLoad")}};
  for (const auto& [name, life] : side_windows) {
    QWidget& place = Open(name);
    QString pressed;
    for (QPushButton* button : place.findChildren<QPushButton*>()) {
      button->disconnect(SIGNAL(clicked(bool)));
      QObject::connect(button, &QPushButton::clicked, button,
                       [button, &pressed] { pressed += button->objectName(); });
    }
    const auto by_default = defaults.find(name);
    for (QWidget* control : place.findChildren<QWidget*>()) {
      if (TakesTab(*control) && control->isVisible()) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Return);
        const bool is_button = qobject_cast<QPushButton*>(control) != nullptr;
        const QString expected = is_button                      ? control->objectName()
                                 : by_default != defaults.end() ? by_default->second
                                                                : QString();
        EXPECT_EQ(std::exchange(pressed, {}), expected) << control->objectName().toStdString();
      }
    }
  }
}

TEST_F(EveryWindow, SideWindowsComeForwardWhenShownAgainAndCloseByEscOrTheirFrame) {
  window.move(window.pos() + QPoint(90, 70));
  for (const auto& [name, life] : side_windows) {
    SCOPED_TRACE(name);
    QWidget* const dialog = &Get(name);
    EXPECT_EQ(dialog->windowHandle()->transientParent(), window.windowHandle());
    EXPECT_FALSE(dialog->isModal());
    window.activateWindow();
    EXPECT_TRUE(ComesForward(window));
    EXPECT_EQ(&Open(name), dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_FALSE(IsOpen(name));
    const QWidget& anew = Open(name);
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
}

TEST_F(EveryWindow, StatisticsAwaitANameAndAreNotTypedInto) {
  Open("frmStats");
  EXPECT_TRUE(Get<QLineEdit>("rbScore").isReadOnly());
  TakeSent();
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Bob\r"));
  EXPECT_EQ(TakeSent(), std::vector{Message("[bre]Bob")});
  Receive("[bre]Ann\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\00111\00224");
  EXPECT_EQ(Get<QTreeView>("lstAwards").model()->rowCount(), 2);
}

TEST_F(EveryWindow, NewsAreShownFromTheirStartAndNotTypedInto) {
  QWidget& frame = Open("frmNews");
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("News"));
  auto& view = Get<MessageViewWidget>("rbNews");
  QScrollBar& bar = *view.verticalScrollBar();
  frame.resize(400, 250);
  QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
  for (const std::size_t lines : {20U, 30U}) {
    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    Receive("[nws]" + std::string(lines, '\n'));
    QTest::keyClicks(&view, QStringLiteral("read only"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.maximum() > 0 && bar.value() == 0; }));
    EXPECT_EQ(TextOf("rbNews"), std::string(lines, '\n'));
  }
}

}  // namespace
}  // namespace korvanta

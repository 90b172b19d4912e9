#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <map>

#include "tests/fakes/fake_platform.h"
#include "ui/desktop/qt_message_box.h"
#include "ui/windows/frmMain.h"

namespace korvanta {
namespace {

/// The keys that one window or menu answers, and its controls that answer none.
class Keys {
 public:
  /// A control without a key may tell in its tool tip which key of the window does the same.
  void Add(const QString& owner, const QKeySequence& key, const QString& tool_tip = {}) {
    if (!key.isEmpty()) {
      owners_[key.toString()].append(owner);
    } else {
      told_.append({owner, tool_tip});
    }
  }
  void Expect(const QString& where) const {
    const std::string place = where.toStdString();
    EXPECT_FALSE(owners_.empty()) << place;
    for (const auto& [owner, tool_tip] : told_) {
      const bool known = std::any_of(owners_.begin(), owners_.end(), [&](const auto& entry) {
        return tool_tip.contains(entry.first);
      });
      EXPECT_TRUE(known || tool_tip == QLatin1String("Esc"))
          << owner.toStdString() << " has no key in " << place;
    }
    for (const auto& [key, owners] : owners_) {
      EXPECT_EQ(owners.size(), 1) << key.toStdString() << " in " << place << ": "
                                  << owners.join(QLatin1Char(' ')).toStdString();
    }
  }

 private:
  std::map<QString, QStringList> owners_;
  QList<std::pair<QString, QString>> told_;
};

void CheckMenu(const QMenu& menu) {
  Keys keys;
  for (const QAction* action : menu.actions()) {
    if (!action->isSeparator()) {
      keys.Add(action->text(), QKeySequence::mnemonic(action->text()));
    }
  }
  keys.Expect(menu.accessibleName());
}

void Collect(const QWidget& window, Keys& keys) {
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != &window) {
      continue;
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
      keys.Add(button->text(), button->shortcut(), button->toolTip());
    } else if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy()) {
      keys.Add(label->text(), QKeySequence::mnemonic(label->text()));
    } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
      for (int i = 0; i < tabs->count(); ++i) {
        keys.Add(tabs->tabText(i), QKeySequence::mnemonic(tabs->tabText(i)));
      }
    } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
      for (const QAction* action : bar->actions()) {
        keys.Add(action->text(), QKeySequence::mnemonic(action->text()));
      }
    }
    for (const auto* shortcut :
         widget->findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
      keys.Add(widget->objectName(), shortcut->key());
    }
  }
  for (const QAction* action : window.findChildren<QAction*>()) {
    const auto* home = static_cast<const QWidget*>(action->parent());
    if (qobject_cast<const QMenu*>(home) != nullptr) {
      home = home->parentWidget();
    }
    if (home->window() != &window) {
      continue;
    }
    for (const QKeySequence& key : action->shortcuts()) {
      keys.Add(action->text(), key);
    }
  }
}

void CheckWindow(const QWidget& window) {
  Keys keys;
  Collect(window, keys);
  if (window.windowType() == Qt::Tool) {  // the keys of its owner hold there too
    Collect(*window.parentWidget(), keys);
  }
  keys.Expect(window.windowTitle());
  for (const auto* area : window.findChildren<QAbstractScrollArea*>()) {
    const QScrollBar* bar = area->verticalScrollBar();
    if (bar->window() == &window && area->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) {
      EXPECT_NE(bar->accessibleName().toStdString(), "") << area->objectName().toStdString();
    }
  }
}

/// The keyboard goes to the right, or below all of what it leaves.
void CheckTabOrder(const QWidget& window) {
  QList<QWidget*> order;
  QWidget* widget = const_cast<QWidget*>(&window);
  while ((widget = widget->nextInFocusChain()) != &window) {
    const bool stops = (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->focusProxy();
    if (stops && widget->isVisible() && widget->window() == &window) {
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

/// Popups stand apart from their windows in what assistive programs walk.
void ExpectSpoken(QAccessibleInterface& node) {
  const QAccessible::Role role = node.role();
  if (role != QAccessible::Separator && (node.state().focusable || role == QAccessible::ListItem)) {
    EXPECT_NE(node.text(QAccessible::Name).toStdString(), "") << role;
    EXPECT_NE(role, QAccessible::Client);
    EXPECT_NE(role, QAccessible::NoRole);
  }
  for (int i = 0; i < node.childCount(); ++i) {
    ExpectSpoken(*node.child(i));
  }
}

void AskForMenu(QWidget& widget) {
  QContextMenuEvent event(QContextMenuEvent::Keyboard, widget.rect().center(),
                          widget.mapToGlobal(widget.rect().center()));
  QApplication::sendEvent(&widget, &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr) << widget.objectName().toStdString();
  CheckMenu(*menu);
  ExpectSpoken(*QAccessible::queryAccessibleInterface(menu));
  menu->close();
}

TEST(AccessKeys, EveryButtonBoxAndTabHasOneOfItsOwnInReadingOrder) {
  fakes::FakePlatform platform;
  Client client(platform.platform(), DeploymentValues{});
  ASSERT_TRUE(client.StartUp());
  client.splash.window().Unload();
  frmMain window(client);
  client.main_window.Show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.resize(1200, 700);
  platform.socket.Accept();
  platform.socket.Receive(std::string("[con]Ann\00190\0", 12));
  for (WindowLife* life : {&client.login_dialog.window(), &client.statistics.window(),
                           &client.news.window(), &client.tournament.window()}) {
    life->Show();
  }
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  CheckWindow(window);
  CheckTabOrder(window);
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    CheckMenu(*menu);
    ExpectSpoken(*QAccessible::queryAccessibleInterface(menu));
  }
  for (QComboBox* box : window.findChildren<QComboBox*>()) {
    box->addItem(QStringLiteral("an item"));
    box->showPopup();
    ExpectSpoken(*QAccessible::queryAccessibleInterface(box->view()->window()));
    box->hidePopup();
  }
  AskForMenu(*window.findChild<QWidget*>(QStringLiteral("rbMessages")));

  const QList<QDialog*> dialogs = window.findChildren<QDialog*>();
  ASSERT_EQ(dialogs.size(), 4);
  for (QDialog* dialog : dialogs) {
    CheckWindow(*dialog);
    if (dialog->objectName() != QLatin1String("frmLogin")) {  // keeps the order that players know
      CheckTabOrder(*dialog);
    }
  }
  AskForMenu(*window.findChild<QWidget*>(QStringLiteral("cboUsernames")));
  auto* tabs = window.findChild<QTabBar*>(QStringLiteral("TStrip"));
  ASSERT_EQ(tabs->count(), 3);
  for (const int tab : {1, 2}) {
    tabs->setCurrentIndex(tab);
    CheckWindow(*tabs->window());
    CheckTabOrder(*tabs->window());
  }
}

TEST(AccessKeys, MessageBoxesHaveThemToo) {
  bool seen = false;
  QTimer::singleShot(0, [&] {
    QWidget* const box = QApplication::activeModalWidget();
    CheckWindow(*box);
    seen = box->close();
  });
  EXPECT_FALSE(QtMessageBox().Ask("Really?", "Korvanta"));
  EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace korvanta

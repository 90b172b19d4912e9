#include <QAccessible>
#include <QApplication>
#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"
#include "ui/board/board_layout.h"
#include "ui/board/board_widget.h"

namespace korvanta {
namespace {

using namespace board_layout;

class BoardAccessibleTest : public testing::Test {
 protected:
  BoardAccessibleTest() {
    widget_.show();
    QApplication::setActiveWindow(&widget_);
    QCoreApplication::processEvents();
  }
  QAccessibleInterface* Board() { return QAccessible::queryAccessibleInterface(&widget_); }
  QAccessibleInterface* Box(int box) {
    return Board()->child(Board()->childCount() - kBoxes + box);
  }

  fakes::FakeTimers timers_;
  GameClock clock_{timers_};
  ResearchBoard board_{clock_};
  BoardWidget widget_{board_, nullptr};
};

TEST_F(BoardAccessibleTest, EveryChildHasANameAndKnowsItsPlace) {
  modLight::LightTopic(board_, TopicCode::Military, 2);
  EXPECT_EQ(Board()->text(QAccessible::Name), QStringLiteral("Research board"));
  QStringList names;
  for (int i = 0; i < Board()->childCount(); ++i) {
    const QAccessibleInterface* child = Board()->child(i);
    ASSERT_NE(child, nullptr) << i;
    names += child->text(QAccessible::Name);
    EXPECT_FALSE(names.back().isEmpty()) << i;
    EXPECT_EQ(Board()->indexOfChild(child), i);
    EXPECT_EQ(child->parent(), Board());
    EXPECT_TRUE(Board()->rect().contains(child->rect())) << i;
  }
  EXPECT_EQ(names.size(), 4 + 4 + 3 + kBoxes);
  for (const char* name : {"Military, level 2, reached", "Military, level 3, not reached",
                           "Golden Knowledge", "Level 4", "Research Points: 0"}) {
    EXPECT_EQ(names.count(QString::fromLatin1(name)), 1) << name;
  }
}

TEST_F(BoardAccessibleTest, BoxesAreFoundByPositionAndByFocus) {
  const QPoint middle = widget_.mapToGlobal(BoxRect(7).center());
  EXPECT_EQ(Board()->childAt(middle.x(), middle.y()), Box(7));
  EXPECT_FALSE(Box(7)->state().focused);
  Box(7)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(widget_.current_box(), 7);
  EXPECT_TRUE(Box(7)->state().focused);
  EXPECT_FALSE(Box(6)->state().focused);
  EXPECT_EQ(Board()->focusChild(), Box(7));
}

}  // namespace
}  // namespace korvanta

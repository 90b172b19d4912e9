#include "ui/board/board_widget.h"

#include <QAccessible>
#include <QImage>
#include <QLabel>
#include <cstdlib>
#include <gmock/gmock.h>

#include "tests/ui/main_window_test.h"
#include "ui/board/board_layout.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

using namespace board_layout;
using std::chrono_literals::operator""ms;
using testing::ElementsAre;
using testing::IsEmpty;

class BoardWidgetTest : public MainWindowTest {
 protected:
  using MenuCall = std::tuple<TopicCode, std::int16_t, QPoint, OpenedBy>;

  BoardWidgetTest() {
    board.on_box_menu = [this](TopicCode topic, std::int16_t level, QPoint position, OpenedBy by) {
      menus.emplace_back(topic, level, position, by);
    };
  }

  static QPoint Middle(int box) { return BoxRect(box).center(); }
  std::vector<MenuCall> TakeMenus() { return std::exchange(menus, {}); }
  QLabel& Label(const char* name) const { return *board.findChild<QLabel*>(QLatin1String(name)); }

  BoardWidget& board = Get<BoardWidget>("ResearchBoard");
  std::vector<MenuCall> menus;
};

TEST_F(BoardWidgetTest, RightButtonReleasedInABoxOpensItsMenuAndTheMouseDoesNothingElse) {
  const QImage before = board.grab().toImage();
  for (int box = 0; box < kBoxes; ++box) {
    QTest::mouseClick(&board, Qt::LeftButton, {}, Middle(box));
    QTest::mouseClick(&board, Qt::MiddleButton, {}, Middle(box));
    QTest::mousePress(&board, Qt::RightButton, {}, Middle(box));
    EXPECT_THAT(TakeMenus(), IsEmpty()) << box;
    QTest::mouseRelease(&board, Qt::RightButton, {}, Middle(box));
    const auto topic = static_cast<TopicCode>(box / 4 + 1);
    const auto level = static_cast<std::int16_t>(box == 16 ? 5 : box % 4 + 1);
    EXPECT_THAT(TakeMenus(), ElementsAre(MenuCall{topic, level, board.mapToGlobal(Middle(box)),
                                                  OpenedBy::Mouse}))
        << box;
  }
  const QRect box = BoxRect(6);
  const std::pair<QPoint, bool> releases[] = {{box.topLeft(), true},
                                              {box.bottomRight(), true},
                                              {box.topLeft() - QPoint(1, 0), false},
                                              {box.bottomRight() + QPoint(0, 1), false}};
  for (const auto& [place, opens] : releases) {
    QTest::mousePress(&board, Qt::RightButton, {}, Middle(0));
    QTest::mouseRelease(&board, Qt::RightButton, {}, place);
    EXPECT_EQ(!TakeMenus().empty(), opens);
  }
  QTest::mouseMove(&board, Middle(5));
  EXPECT_TRUE(Get("cboSend").hasFocus());
  EXPECT_EQ(board.current_box(), 0);
  EXPECT_EQ(board.grab().toImage(), before);
}

TEST_F(BoardWidgetTest, ArrowKeysWalkAndTheMenuKeysOpen) {
  board.setFocus();
  const std::pair<Qt::Key, int> steps[] = {
      {Qt::Key_Left, 0},   {Qt::Key_Up, 0},     {Qt::Key_Right, 1},  {Qt::Key_Down, 5},
      {Qt::Key_Down, 9},   {Qt::Key_Down, 13},  {Qt::Key_Down, 13},  {Qt::Key_Up, 9},
      {Qt::Key_Right, 10}, {Qt::Key_Right, 11}, {Qt::Key_Right, 16}, {Qt::Key_Right, 16},
      {Qt::Key_Up, 16},    {Qt::Key_Down, 16},  {Qt::Key_Left, 11},  {Qt::Key_Left, 10},
  };
  for (const auto& [key, box] : steps) {
    QTest::keyClick(&board, key);
    EXPECT_EQ(board.current_box(), box) << box;
  }
  EXPECT_THAT(TakeMenus(), IsEmpty());
  const MenuCall expected{TopicCode::Population, 3, board.mapToGlobal(Middle(10)),
                          OpenedBy::Keyboard};
  QTest::keyClick(&board, Qt::Key_Menu);
  EXPECT_THAT(TakeMenus(), ElementsAre(expected));
  QTest::keyClick(&board, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_THAT(TakeMenus(), ElementsAre(expected));
  QTest::keyClick(&board, Qt::Key_F10);
  EXPECT_THAT(TakeMenus(), IsEmpty());
}

TEST_F(BoardWidgetTest, LongResearchPointsAreWholeInSmallerLettersAndTheLongestInTheToolTip) {
  const QLabel& research = Label("Research");
  const int usual = research.font().pixelSize();
  const auto show = [&](double points) {
    client.research_board.ShowResearchPoints(points);
    EXPECT_EQ(research.accessibleName(), ToQString(client.research_board.Research()));
    return research.text() == ToQString(client.research_board.Research());
  };
  EXPECT_TRUE(show(-1e30));
  EXPECT_LT(research.font().pixelSize(), usual);
  EXPECT_LE(research.fontMetrics().horizontalAdvance(research.text()), research.width());
  EXPECT_FALSE(show(-1e308));
  EXPECT_TRUE(research.text().endsWith(QChar(0x2026)));
  EXPECT_EQ(research.toolTip().count(QLatin1Char('0')), 308);
  EXPECT_TRUE(show(2.5));
  EXPECT_EQ(research.font().pixelSize(), usual);
  EXPECT_EQ(research.toolTip(), QString());
}

TEST_F(BoardWidgetTest, FramesLinesAndCaptionsAreDrawnInTheirColoursAsThickAsTheModelSays) {
  ResearchBoard& model = client.research_board;
  for (std::size_t row = 0; row < kTopicRows; ++row) {  // each to another level
    modLight::LightTopic(model, kTopics[row].code, static_cast<std::int16_t>(row + 1));
  }
  const QImage image = board.grab().toImage();
  const auto count = [&image](QRect place, QColor colour) {
    int found = 0;
    for (int x = place.left(); x <= place.right(); ++x) {
      for (int y = place.top(); y <= place.bottom(); ++y) {
        const QColor seen = image.pixelColor(x, y);
        const int off = std::abs(seen.red() - colour.red()) +
                        std::abs(seen.green() - colour.green()) +
                        std::abs(seen.blue() - colour.blue());
        found += off < 40 ? 1 : 0;  // the ends of the bent lines are not quite level
      }
    }
    return found;
  };
  const auto element = [this](std::string_view name, int level) {
    const QString whole = QStringLiteral("%1(%2)").arg(ToQString(name)).arg(level);
    return board.findChild<BoardElement*>(whole)->rect();
  };
  const QColor yellow(255, 255, 0);
  const QColor rows[] = {{0, 255, 0}, {255, 0, 0}, {0, 255, 255}, {0, 0, 255}};
  const std::pair<const char*, QColor> labels[] = {
      {"Label1(0)", Qt::white}, {"Label1(1)", Qt::white}, {"Label1(2)", Qt::white},
      {"Label1(3)", Qt::white}, {"Label2", rows[0]},      {"Label3", rows[1]},
      {"Label4", rows[2]},      {"Label5", rows[3]},      {"Label6", yellow},
      {"Research", rows[0]}};
  for (const auto& [name, colour] : labels) {
    EXPECT_GT(count(Label(name).geometry(), colour), 20) << name;
  }
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    for (int level = 1; level <= kTopLevel; ++level) {
      const QRect frame = element(kTopics[row].frames, level);
      const QRect line = element(kTopics[row].lines, level);
      EXPECT_EQ(count({frame.left(), frame.top() + 8, 6, 1}, rows[row]),
                model.FrameWidth(row, level));
      for (const int x : {line.left() + 1, line.right() - 1}) {
        EXPECT_EQ(count({x, line.top() - 4, 1, line.height() + 8}, rows[row]),
                  model.LineWidth(row, level))
            << row << ", line " << level;
      }
    }
  }
  EXPECT_EQ(count({kGoldenBox.left(), kGoldenBox.top() + 8, 6, 1}, yellow), 1);
}

TEST_F(BoardWidgetTest, LabelsAndBoxesHaveNamesAndEverythingKnowsItsPlace) {
  modLight::LightTopic(client.research_board, TopicCode::Military, 2);
  client.game_clock.StartGameClock(90);
  platform.timers.Tick(1000ms);
  QAccessibleInterface& tree = *QAccessible::queryAccessibleInterface(&board);
  QStringList names;
  std::function<void(const QAccessibleInterface&)> walk = [&](const QAccessibleInterface& node) {
    for (int i = 0; i < node.childCount(); ++i) {
      const QAccessibleInterface& child = *node.child(i);
      EXPECT_EQ(node.indexOfChild(&child), i);
      EXPECT_EQ(child.parent(), &node);
      EXPECT_TRUE(node.rect().contains(child.rect())) << i;
      names += child.text(QAccessible::Name);
      EXPECT_EQ(names.back().isEmpty(),
                child.role() == QAccessible::Grouping || child.role() == QAccessible::Separator);
      walk(child);
    }
  };
  walk(tree);
  names.removeAll(QString());
  EXPECT_EQ(names.size(), 4 + 4 + 3 + kBoxes);
  for (const char* name :
       {"Military, level 2, reached", "Military, level 3, not reached", "Golden Knowledge",
        "Level 1", "Level 4", "Industry", "Research Points: 0", "Tick Time - 1:29",
        "Research any 2-Level 4 Topics and research Golden Knowledge to Win!"}) {
    EXPECT_EQ(names.count(QString::fromLatin1(name)), 1) << name;
  }
}

TEST_F(BoardWidgetTest, BoxesAreFoundByNamePositionAndFocusInsideTheirFrames) {
  const std::pair<const char*, const char*> boxes[] = {{"Military(1)", "MilitaryBord(1)"},
                                                       {"Industry(4)", "IndustryBord(4)"},
                                                       {"Pop(2)", "PopBord(2)"},
                                                       {"Defense(3)", "DefenseBorder(3)"},
                                                       {"GoldKnow", "Shape1"}};
  QAccessibleInterface& tree = *QAccessible::queryAccessibleInterface(&board);
  const auto element = [this](const char* name) {
    auto* found = board.findChild<BoardElement*>(QLatin1String(name));
    return QAccessible::queryAccessibleInterface(found);
  };
  for (const auto& [box, frame] : boxes) {
    const QPoint middle = element(box)->rect().center();
    EXPECT_EQ(element(box)->parent(), element(frame)) << box;
    EXPECT_EQ(tree.childAt(middle.x(), middle.y()), element(frame)) << box;
    EXPECT_EQ(element(frame)->childAt(middle.x(), middle.y()), element(box)) << box;
    element(box)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(tree.focusChild(), element(box));
    EXPECT_TRUE(element(box)->state().focused);
  }
  EXPECT_FALSE(element("Military(1)")->state().focused);
}

}  // namespace
}  // namespace korvanta

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

  std::vector<MenuCall> TakeMenus() { return std::exchange(menus, {}); }
  QLabel& Label(const char* name) const { return *board.findChild<QLabel*>(QLatin1String(name)); }

  BoardWidget& board = Get<BoardWidget>("ResearchBoard");
  std::vector<MenuCall> menus;
};

TEST_F(BoardWidgetTest, RightButtonReleasedInABoxOpensItsMenuAndTheMouseDoesNothingElse) {
  for (int box = 0; box < kBoxes; ++box) {
    const auto topic = static_cast<TopicCode>(box / 4 + 1);
    const auto level = static_cast<std::int16_t>(box == 16 ? 5 : box % 4 + 1);
    const QRect rect = BoxRect(box);
    const std::tuple<Qt::MouseButton, QPoint, bool> releases[] = {
        {Qt::RightButton, rect.topLeft(), true},
        {Qt::RightButton, rect.bottomRight(), true},
        {Qt::RightButton, rect.topLeft() - QPoint(1, 0), false},
        {Qt::RightButton, rect.bottomRight() + QPoint(0, 1), false},
        {Qt::LeftButton, rect.center(), false}};
    for (const auto& [button, place, opens] : releases) {
      QTest::mousePress(&board, button, {}, BoxRect(5).center());
      EXPECT_THAT(TakeMenus(), IsEmpty()) << box;
      QTest::mouseRelease(&board, button, {}, place);
      const MenuCall call{topic, level, board.mapToGlobal(place), OpenedBy::Mouse};
      EXPECT_EQ(TakeMenus(), opens ? std::vector{call} : std::vector<MenuCall>()) << box;
    }
  }
  EXPECT_TRUE(Get("cboSend").hasFocus());
  EXPECT_EQ(board.current_box(), 0);
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
  const MenuCall expected{TopicCode::Population, 3, board.mapToGlobal(BoxRect(10).center()),
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
  for (const double points : {-1e30, -1e308, 2.5}) {
    client.research_board.ShowResearchPoints(points);
    const QString whole = ToQString(client.research_board.Research());
    EXPECT_EQ(research.accessibleName(), whole);
    EXPECT_EQ(research.text() == whole, points != -1e308);
    EXPECT_EQ(research.font().pixelSize() == usual, points > 0);
    EXPECT_LE(research.fontMetrics().horizontalAdvance(research.text()), research.width());
    EXPECT_EQ(research.toolTip().count(u'0'), points == -1e308 ? 308 : 0);
  }
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
      {"Label1(0)", Qt::white}, {"Label2", rows[0]}, {"Label3", rows[1]},  {"Label4", rows[2]},
      {"Label5", rows[3]},      {"Label6", yellow},  {"Research", rows[0]}};
  for (const auto& [name, colour] : labels) {
    EXPECT_GT(count(Label(name).geometry(), colour), 20) << name;
  }
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    for (int level = 1; level <= kTopLevel; ++level) {
      const QRect frame = element(kTopics[row].frames, level);
      const QRect line = element(kTopics[row].lines, level);
      EXPECT_EQ(count({frame.left(), frame.top() + 8, 6, 1}, rows[row]),
                model.FrameWidth(row, level));
      const int end = level < kTopLevel ? RowMiddle(row) : PortOf(row);
      for (const auto& [x, y] :
           {std::pair{line.left() + 1, RowMiddle(row)}, {line.right() - 1, end}}) {
        EXPECT_EQ(count({x, y - 5, 1, 10}, rows[row]), model.LineWidth(row, level))
            << row << ", line " << level;
      }
    }
  }
  EXPECT_EQ(count({kGoldenBox.left(), kGoldenBox.top() + 8, 6, 1}, yellow), 1);
}

TEST_F(BoardWidgetTest, LabelsAndBoxesAreFoundAndNamedAndEverythingKnowsItsPlace) {
  modLight::LightTopic(client.research_board, TopicCode::Military, 2);
  client.game_clock.StartGameClock(90);
  platform.timers.Tick(1000ms);
  QAccessibleInterface& tree = *QAccessible::queryAccessibleInterface(&board);
  QStringList names;
  std::function<void(QAccessibleInterface&)> walk = [&](QAccessibleInterface& node) {
    for (int i = 0; i < node.childCount(); ++i) {
      QAccessibleInterface& child = *node.child(i);
      const QPoint middle = child.rect().center();
      const bool is_button = child.role() == QAccessible::ButtonMenu;
      EXPECT_EQ(node.indexOfChild(&child), i);
      EXPECT_EQ(child.parent(), &node);
      EXPECT_TRUE(node.rect().contains(child.rect())) << i;
      if (is_button || child.role() == QAccessible::Grouping) {
        EXPECT_EQ(node.childAt(middle.x(), middle.y()), &child) << i;
      }
      if (is_button) {
        EXPECT_FALSE(child.state().focused);
        child.actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        EXPECT_TRUE(child.state().focused);
        EXPECT_EQ(tree.focusChild(), &child);
      }
      names.append({child.text(QAccessible::Name), child.object()->objectName()});
      walk(child);
    }
  };
  walk(tree);
  EXPECT_EQ(names.count(QString()), 2 * kBoxes - 1) << "frames and lines";
  for (const char* name :
       {"Military, level 2, reached", "Military, level 3, not reached", "Golden Knowledge",
        "Level 1", "Level 4", "Industry", "Research Points: 0", "Tick Time - 1:29", "Military(1)",
        "IndustryBord(4)", "Pop(2)", "DefenseBorder(3)", "GoldKnow", "Shape1",
        "Research any 2-Level 4 Topics and research Golden Knowledge to Win!"}) {
    EXPECT_EQ(names.count(QString::fromLatin1(name)), 1) << name;
  }
}

}  // namespace
}  // namespace korvanta

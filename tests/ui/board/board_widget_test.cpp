#include "ui/board/board_widget.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <cstdlib>
#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"
#include "ui/board/board_layout.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

using namespace board_layout;
using std::chrono_literals::operator""ms;

struct MenuCall {
  TopicCode topic;
  std::int16_t level;
  QPoint position;
  bool operator==(const MenuCall&) const = default;
};

/// A window with a line edit, which has the focus at first, and the board.
class BoardWidgetTest : public testing::Test {
 protected:
  BoardWidgetTest() {
    auto* column = new QVBoxLayout(&window_);
    column->addWidget(&other_);
    column->addWidget(&widget_);
    widget_.on_box_menu = [this](TopicCode topic, std::int16_t level, QPoint position) {
      menu_ = MenuCall{topic, level, position};
    };
    window_.show();
    other_.setFocus();
    QApplication::setActiveWindow(&window_);
    QCoreApplication::processEvents();
  }

  static QPoint Middle(int box) { return BoxRect(box).center(); }
  std::optional<MenuCall> TakeMenu() { return std::exchange(menu_, std::nullopt); }
  QLabel* Label(const char* name) const {
    return widget_.findChild<QLabel*>(QString::fromLatin1(name));
  }
  fakes::FakeTimers timers_;
  GameClock clock_{timers_};
  ResearchBoard board_{clock_};
  QWidget window_;
  QLineEdit other_{&window_};
  BoardWidget widget_{board_, &window_};
  std::optional<MenuCall> menu_;
};

TEST_F(BoardWidgetTest, RightButtonReleasedOpensTheMenuOfEveryBox) {
  for (int box = 0; box < kBoxes; ++box) {
    QTest::mouseClick(&widget_, Qt::LeftButton, {}, Middle(box));
    QTest::mouseClick(&widget_, Qt::MiddleButton, {}, Middle(box));
    QTest::mousePress(&widget_, Qt::RightButton, {}, Middle(box));
    EXPECT_EQ(TakeMenu(), std::nullopt) << box;
    QTest::mouseRelease(&widget_, Qt::RightButton, {}, Middle(box));
    const auto topic = static_cast<TopicCode>(box / 4 + 1);
    const auto level = static_cast<std::int16_t>(box == 16 ? 5 : box % 4 + 1);
    EXPECT_EQ(TakeMenu(), (MenuCall{topic, level, widget_.mapToGlobal(Middle(box))})) << box;
  }
}

TEST_F(BoardWidgetTest, WhereTheButtonIsReleasedCounts) {
  const QPoint between = (Middle(0) + Middle(1)) / 2;
  QTest::mousePress(&widget_, Qt::RightButton, {}, Middle(0));
  QTest::mouseRelease(&widget_, Qt::RightButton, {}, between);
  EXPECT_EQ(TakeMenu(), std::nullopt);
  for (const QPoint corner : {BoxRect(6).topLeft(), BoxRect(6).bottomRight()}) {
    QTest::mouseClick(&widget_, Qt::RightButton, {}, corner);
    EXPECT_TRUE(TakeMenu().has_value());
  }
  for (const QPoint outside :
       {BoxRect(6).topLeft() - QPoint(1, 0), BoxRect(6).bottomRight() + QPoint(0, 1)}) {
    QTest::mouseClick(&widget_, Qt::RightButton, {}, outside);
    EXPECT_EQ(TakeMenu(), std::nullopt);
  }
}

TEST_F(BoardWidgetTest, NoClickTakesTheFocusFromTheChatLine) {
  QTest::mouseClick(&widget_, Qt::RightButton, {}, Middle(5));
  QTest::mouseClick(&widget_, Qt::LeftButton, {}, QPoint(2, 2));
  QTest::mouseClick(&widget_, Qt::LeftButton, {}, Middle(5));
  EXPECT_TRUE(other_.hasFocus());
  EXPECT_EQ(widget_.current_box(), 0);
}

TEST_F(BoardWidgetTest, ArrowKeysWalkAndTheMenuKeysOpen) {
  QTest::keyClick(&other_, Qt::Key_Tab);
  ASSERT_TRUE(widget_.hasFocus());
  struct Step {
    Qt::Key key;
    int box;
  };
  const std::vector<Step> steps = {
      {Qt::Key_Left, 0},   {Qt::Key_Up, 0},     {Qt::Key_Right, 1},  {Qt::Key_Down, 5},
      {Qt::Key_Down, 9},   {Qt::Key_Down, 13},  {Qt::Key_Down, 13},  {Qt::Key_Up, 9},
      {Qt::Key_Right, 10}, {Qt::Key_Right, 11}, {Qt::Key_Right, 16}, {Qt::Key_Right, 16},
      {Qt::Key_Up, 16},    {Qt::Key_Down, 16},  {Qt::Key_Left, 11},  {Qt::Key_Left, 10},
  };
  for (const Step& step : steps) {
    QTest::keyClick(&widget_, step.key);
    EXPECT_EQ(widget_.current_box(), step.box) << step.box;
  }
  EXPECT_EQ(TakeMenu(), std::nullopt);
  const MenuCall expected{TopicCode::Population, 3, widget_.mapToGlobal(Middle(10))};
  QTest::keyClick(&widget_, Qt::Key_Menu);
  EXPECT_EQ(TakeMenu(), expected);
  QTest::keyClick(&widget_, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(TakeMenu(), expected);
  QTest::keyClick(&widget_, Qt::Key_F10);
  EXPECT_EQ(TakeMenu(), std::nullopt);
}

TEST_F(BoardWidgetTest, LabelsShowTheModel) {
  EXPECT_EQ(Label("Label1(0)")->text(), QStringLiteral("Level 1"));
  EXPECT_EQ(Label("Label1(3)")->text(), QStringLiteral("Level 4"));
  EXPECT_EQ(Label("Label3")->text(), QStringLiteral("Industry"));
  EXPECT_EQ(Label("Label6")->text(),
            QStringLiteral("Research any 2-Level 4 Topics and research Golden Knowledge to Win!"));
  board_.ShowResearchPoints(2.5);
  clock_.StartGameClock(90);
  timers_.Tick(1000ms);
  EXPECT_EQ(Label("Research")->text(), QStringLiteral("Research Points: 2.5"));
  EXPECT_EQ(Label("TickTime")->text(), QStringLiteral("Tick Time - 1:29"));

  board_.ShowResearchPoints(-1e308);
  EXPECT_TRUE(Label("Research")->text().endsWith(QChar(0x2026)));
  EXPECT_EQ(Label("Research")->accessibleName(), ToQString(board_.Research()));
  for (const QLabel* label : widget_.findChildren<QLabel*>()) {
    EXPECT_FALSE(label->accessibleName().isEmpty());
  }
}

TEST_F(BoardWidgetTest, FramesLinesAndCaptionsAreDrawnInTheirColoursAsThickAsTheModelSays) {
  const QImage plain = widget_.grab().toImage();
  const auto count = [](const QImage& image, QRect place, QColor colour) {
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
  const QColor yellow(255, 255, 0);
  const QColor rows[] = {{0, 255, 0}, {255, 0, 0}, {0, 255, 255}, {0, 0, 255}};
  const std::pair<const char*, QColor> labels[] = {
      {"Label1(0)", Qt::white}, {"Label1(1)", Qt::white}, {"Label1(2)", Qt::white},
      {"Label1(3)", Qt::white}, {"Label2", rows[0]},      {"Label3", rows[1]},
      {"Label4", rows[2]},      {"Label5", rows[3]},      {"Label6", yellow},
      {"Research", rows[0]}};
  for (const auto& [name, colour] : labels) {
    EXPECT_GT(count(plain, Label(name)->geometry(), colour), 20) << name;
  }
  for (std::size_t row = 0; row < kTopicRows; ++row) {
    for (int level = 0; level <= kTopLevel; ++level) {
      modLight::LightTopic(board_, kTopics[row].code, static_cast<std::int16_t>(level));
      const QImage image = widget_.grab().toImage();
      for (int i = 1; i <= kTopLevel; ++i) {
        const QRect box = BoxRect(BoxAt(row, i));
        const bool line_reached = i < kTopLevel ? i + 1 <= level : level == kTopLevel;
        EXPECT_EQ(count(image, {box.left(), box.top() + 8, 6, 1}, rows[row]), i <= level ? 4 : 1);
        EXPECT_EQ(count(image, {box.right() + 2, RowMiddle(row) - 6, 1, 12}, rows[row]),
                  line_reached ? 4 : 1)
            << row << ", line " << i << " at level " << level;
      }
      EXPECT_EQ(count(image, {kGoldenBox.left() - 2, PortOf(row) - 6, 1, 12}, rows[row]),
                level == kTopLevel ? 4 : 1);
      EXPECT_EQ(count(image, {kGoldenBox.left(), kGoldenBox.top() + 8, 6, 1}, yellow), 1);
    }
  }
}

}  // namespace
}  // namespace korvanta

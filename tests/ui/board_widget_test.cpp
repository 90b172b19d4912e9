#include "ui/board_widget.h"

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPaintEvent>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <utility>
#include <vector>

#include "tests/fakes/fake_platform.h"
#include "ui/board_layout.h"
#include "ui/contrast.h"
#include "ui/text.h"
#include "ui/theme.h"

namespace korvanta {
namespace {

using namespace board_layout;
using std::chrono_literals::operator""ms;

/// Remembers what it was asked to repaint.
class WatchedBoard : public BoardWidget {
 public:
  using BoardWidget::BoardWidget;
  QRegion painted;

 protected:
  void paintEvent(QPaintEvent* event) override {
    painted |= event->region();
    BoardWidget::paintEvent(event);
  }
};

struct MenuCall {
  std::int16_t topic;
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
    widget_.on_box_menu = [this](std::int16_t topic, std::int16_t level, QPoint position) {
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
  QImage Render(qreal scale = 1) {
    QImage image((QSizeF(kSize) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    widget_.render(&image);
    return image;
  }
  QRegion RepaintedBy(const std::function<void()>& change) {
    QCoreApplication::processEvents();
    widget_.painted = {};
    change();
    QCoreApplication::processEvents();
    return widget_.painted;
  }

  fakes::FakeTimers timers_;
  GameClock clock_{timers_};
  ResearchBoard board_{clock_};
  QWidget window_;
  QLineEdit other_{&window_};
  WatchedBoard widget_{board_, &window_};
  std::optional<MenuCall> menu_;
};

TEST_F(BoardWidgetTest, RightButtonReleasedOpensTheMenuOfEveryBox) {
  for (int box = 0; box < kBoxes; ++box) {
    QTest::mouseClick(&widget_, Qt::LeftButton, {}, Middle(box));
    QTest::mouseClick(&widget_, Qt::MiddleButton, {}, Middle(box));
    QTest::mousePress(&widget_, Qt::RightButton, {}, Middle(box));
    EXPECT_EQ(TakeMenu(), std::nullopt) << box;
    QTest::mouseRelease(&widget_, Qt::RightButton, {}, Middle(box));
    const auto topic = static_cast<std::int16_t>(box / 4 + 1);
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
  const MenuCall expected{3, 3, widget_.mapToGlobal(Middle(10))};
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
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_FALSE(label->accessibleName().isEmpty());
    const int lines =
        label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    EXPECT_LE(lines, label->height()) << label->text().toStdString();
    if (!label->wordWrap()) {
      EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
    }
  }
}

/// The runs of equal colour along a line of pixels, as colour and length.
std::vector<std::pair<QRgb, int>> Runs(const QImage& image, int y, int from, int to) {
  std::vector<std::pair<QRgb, int>> runs;
  for (int x = from; x < to; ++x) {
    if (runs.empty() || runs.back().first != image.pixel(x, y)) {
      runs.emplace_back(image.pixel(x, y), 0);
    }
    ++runs.back().second;
  }
  return runs;
}

TEST_F(BoardWidgetTest, FramesAreCrispAtEveryScale) {
  modLight::LightTopic(board_, 2, 1);
  for (const qreal scale : {1.0, 1.25, 1.5, 2.0}) {
    const QImage image = Render(scale);
    const auto device = [scale](int logical) { return qRound(logical * scale); };
    for (const auto& [box, width] : {std::pair{4, kReachedWidth}, {5, kPlainWidth}}) {
      const QRect rect = BoxRect(box);
      // below the corner and above the picture: ground, frame, box, frame, ground
      const auto runs = Runs(image, device(rect.top() + 8), device(rect.left()) - 5,
                             device(rect.left() + kBoxSide) + 5);
      ASSERT_EQ(runs.size(), 5U) << "blurred edges at " << scale;
      const int thick = qMax(1, qRound(width * scale));
      EXPECT_EQ(runs[1], (std::pair{qRgb(255, 0, 0), thick})) << scale;
      EXPECT_EQ(runs[3], (std::pair{qRgb(255, 0, 0), thick})) << scale;
      EXPECT_EQ(runs[0], (std::pair{qRgb(0, 0, 0), 5})) << scale;
      EXPECT_EQ(runs[4], (std::pair{qRgb(0, 0, 0), 5})) << scale;
    }
  }
}

TEST_F(BoardWidgetTest, ReachedLevelsStandOut) {
  const QImage plain = Render();
  modLight::LightTopic(board_, 4, 4);
  const QImage reached = Render();
  const auto brightest = [](const QImage& image, const QRect& area) {
    double most = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
      for (int x = area.left(); x <= area.right(); ++x) {
        most = qMax(most, Contrast(image.pixelColor(x, y), Qt::black));
      }
    }
    return most;
  };
  for (int level = 1; level <= 4; ++level) {
    const QRect box = BoxRect(BoxAt(3, level));
    EXPECT_GT(brightest(plain, box), 4.5) << "a plain picture can still be read";
    EXPECT_GT(brightest(reached, box), 2 * brightest(plain, box));
  }
  const QPoint on_last_line(kGoldenBox.left() - 2, PortOf(3));
  EXPECT_EQ(reached.pixelColor(on_last_line), QColor(0, 0, 255)) << "line 4 meets the goal";
}

TEST_F(BoardWidgetTest, WhatChangesNothingIsNotRepaintedAndATickOnlyTheClock) {
  EXPECT_FALSE(RepaintedBy([&] { modLight::LightTopic(board_, 2, 3); }).isEmpty());
  EXPECT_TRUE(RepaintedBy([&] { modLight::LightTopic(board_, 2, 3); }).isEmpty());
  const QRegion clock = RepaintedBy([&] {
    clock_.StartGameClock(5);
    timers_.Tick(1000ms);
  });
  EXPECT_EQ(clock.boundingRect(), kTickTime);
}

TEST_F(BoardWidgetTest, FocusRingIsVisibleAndMoves) {
  const QPoint beside = BoxRect(1).topLeft() + QPoint(-kRingReach + 1, 19);
  QTest::keyClick(&other_, Qt::Key_Tab);
  EXPECT_EQ(Render().pixelColor(beside), QColor(Qt::black));
  QTest::keyClick(&widget_, Qt::Key_Right);
  EXPECT_EQ(Render().pixelColor(beside), theme::kGoldText);
  QTest::keyClick(&widget_, Qt::Key_Right);
  EXPECT_EQ(Render().pixelColor(beside), QColor(Qt::black));
}

TEST_F(BoardWidgetTest, ToolTipSaysWhatABoxIs) {
  modLight::LightTopic(board_, 1, 2);
  EXPECT_EQ(widget_.BoxText(1), QStringLiteral("Military, level 2, reached"));
  EXPECT_EQ(widget_.BoxText(14), QStringLiteral("Defense, level 3, not reached"));
  EXPECT_EQ(widget_.BoxText(16), QStringLiteral("Golden Knowledge"));
  QHelpEvent help(QEvent::ToolTip, Middle(1), widget_.mapToGlobal(Middle(1)));
  QApplication::sendEvent(&widget_, &help);
  EXPECT_EQ(QToolTip::text(), widget_.BoxText(1));
  QToolTip::hideText();
}

TEST(BoardColours, OnlyTheBlueThatTheRulesFixIsHardToReadOnBlack) {
  std::vector<std::string_view> hard;
  for (const TopicRow& topic : kTopics) {
    if (Contrast(ToQColor(topic.colour), Qt::black) < 4.5) {
      hard.push_back(topic.name);
    }
  }
  EXPECT_THAT(hard, testing::ElementsAre("Defense"));
  EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.01);
  EXPECT_NEAR(Contrast(Qt::blue, Qt::black), 2.44, 0.01);
  EXPECT_NEAR(Contrast(Qt::blue, Qt::white), 8.59, 0.01);
}

}  // namespace
}  // namespace korvanta

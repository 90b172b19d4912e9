#include "ui/frmSplash.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using std::chrono_literals::operator""ms;

class frmSplashTest : public testing::Test {
 protected:
  QLabel* Label(const char* name) {
    auto* label = window_.findChild<QLabel*>(QString::fromLatin1(name));
    EXPECT_NE(label, nullptr) << name;
    return label;
  }

  fakes::FakeTimers timers_;
  Splash splash_{timers_, {"All rights <b>reserved</b>", "The Maker", "2002-2024"}};
  frmSplash window_{splash_};
};

TEST_F(frmSplashTest, ShowsTheTextsOfItsPlainHalf) {
  splash_.window().Show();
  splash_.ShowVersion();
  window_.show();
  EXPECT_EQ(Label("Label1")->text(), QStringLiteral("Korvanta"));
  EXPECT_EQ(Label("Label3")->text(), QStringLiteral("Version: 1.6"));
  EXPECT_EQ(Label("Label5(0)")->text(), QStringLiteral("All rights <b>reserved</b>"));
  EXPECT_EQ(Label("Label5(2)")->text(), QStringLiteral("2002-2024"));
  EXPECT_FALSE(Label("Image1")->pixmap().isNull());
  for (const QLabel* label : window_.findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
    EXPECT_FALSE(label->accessibleName().isEmpty()) << label->objectName().toStdString();
    EXPECT_TRUE(window_.rect().contains(label->geometry())) << label->objectName().toStdString();
  }
}

TEST_F(frmSplashTest, DotsDoNotMoveTheLine) {
  splash_.window().Show();
  window_.show();
  const auto first_words = [&] { return window_.grab(QRect(32, 272, 96, 24)).toImage(); };
  splash_.on_changed();
  const QImage before = first_words();
  for (int dots = 1; dots <= 4; ++dots) {
    timers_.Tick(200ms);
    EXPECT_EQ(Label("Label4")->text(),
              QStringLiteral("Now Loading") + QString(dots, QLatin1Char('.')));
    EXPECT_EQ(first_words(), before) << dots;
  }
}

TEST_F(frmSplashTest, StaysWhenTheDesktopWouldCloseItAndUnloadsWhenTheProgramEnds) {
  splash_.window().Show();
  window_.show();
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_EQ(splash_.window().state(), WindowLife::State::Shown);
  window_.close();
  EXPECT_EQ(splash_.window().state(), WindowLife::State::Absent);
}

}  // namespace
}  // namespace korvanta

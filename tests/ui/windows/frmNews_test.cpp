#include <QScrollBar>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

TEST_F(MainWindowTest, NewsAreShownFromTheirStartAndNotTypedInto) {
  client.news.ShowNews(std::string(20, '\n'));
  QWidget& frame = Open("frmNews");
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("News"));
  auto& view = Get<MessageViewWidget>("rbNews");
  QScrollBar& bar = *view.verticalScrollBar();
  frame.resize(400, 250);
  QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
  QTest::keyClicks(&view, QStringLiteral("read only"));
  QApplication::processEvents();
  EXPECT_GT(bar.maximum(), 0);
  EXPECT_EQ(bar.value(), 0);
  bar.triggerAction(QAbstractSlider::SliderToMaximum);
  client.news.ShowNews(std::string(30, '\n'));
  ASSERT_TRUE(QTest::qWaitFor([&] { return bar.value() == 0; }));
  EXPECT_EQ(TextOf("rbNews"), std::string(30, '\n'));
}

TEST_F(MainWindowTest, AWindowReopenedAtOnceShowsWhatArrives) {
  client.news.window().Show();
  client.news.window().Unload();
  client.news.window().Show();
  DeleteClosedWindows();
  Receive("[nws]fresh");
  EXPECT_EQ(TextOf("rbNews"), "fresh");
}

}  // namespace
}  // namespace korvanta

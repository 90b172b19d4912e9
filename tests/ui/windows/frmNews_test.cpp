#include <QScrollBar>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

TEST_F(MainWindowTest, NewsAreShownWholeFromTheirStart) {
  std::string text = "a b\r\nc\rd\n\n" + std::string(1'000'000, 'w') + std::string(1'000, '\n');
  client.news.ShowNews(text);
  const QWidget& frame = Open("frmNews");
  EXPECT_EQ(frame.windowTitle(), QStringLiteral("News"));
  auto& view = Get<MessageViewWidget>("rbNews");
  QScrollBar& bar = *view.verticalScrollBar();
  EXPECT_EQ(TextOf("rbNews"), text);
  EXPECT_EQ(bar.value(), 0);
  QTest::keyClicks(&view, QStringLiteral("read only"));
  EXPECT_EQ(TextOf("rbNews"), text);
  bar.triggerAction(QAbstractSlider::SliderToMaximum);
  client.news.ShowNews(text + "more");
  ASSERT_TRUE(QTest::qWaitFor([&] { return bar.value() == 0; }));
  EXPECT_EQ(TextOf("rbNews"), text + "more");
}

TEST_F(MainWindowTest, NewsStayAtTheirStartWhenThereIsLessRoom) {
  client.news.ShowNews(std::string(20, '\n'));
  Open("frmNews").resize(400, 250);
  auto& view = Get<MessageViewWidget>("rbNews");
  QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
  QApplication::processEvents();
  EXPECT_GT(view.verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(view.verticalScrollBar()->value(), 0);
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

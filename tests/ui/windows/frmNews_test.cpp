#include "ui/windows/frmNews.h"

#include <QScrollBar>

#include "tests/fakes/logged_in_player.h"
#include "tests/ui/windows/side_windows.h"

namespace korvanta {
namespace {

class FrmNewsTest : public testing::Test {
 protected:
  MessageViewWidget& Text() { return desk.Get<MessageViewWidget>("rbNews"); }
  std::string Shown() { return Text().model().text().Bytes(0, Text().model().size()); }

  fakes::LoggedInPlayer player;
  News news{player.connection};
  Desk<frmNews, News> desk{news};
};

TEST_F(FrmNewsTest, ShowsTheWholeTextFromItsStart) {
  std::string text = "a b\r\nc\rd\n\n" + std::string(1'000'000, 'w');
  for (int line = 0; line < 1'000; ++line) {
    text += "line\n";
  }
  news.ShowNews(text);
  desk.Open();
  EXPECT_EQ(desk.frame->windowTitle(), QStringLiteral("News"));
  EXPECT_EQ(Shown(), text);
  EXPECT_EQ(Text().verticalScrollBar()->value(), 0);
  QTest::keyClicks(&Text(), QStringLiteral("read only"));
  EXPECT_EQ(Shown(), text);

  Text().verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
  news.ShowNews(text + "more");
  ASSERT_TRUE(QTest::qWaitFor([this] { return Text().verticalScrollBar()->value() == 0; }));
  EXPECT_EQ(Shown(), text + "more");
  news.ShowNews("");
  EXPECT_EQ(Shown(), "");
}

TEST_F(FrmNewsTest, StaysAtItsStartWhenThereIsLessRoom) {
  std::string text;
  for (int line = 0; line < 20; ++line) {
    text += "line\n";
  }
  news.ShowNews(text);
  desk.Open();
  desk.frame->resize(400, 250);
  QTest::keyClick(&Text(), Qt::Key_Plus, Qt::ControlModifier);
  QApplication::processEvents();
  EXPECT_GT(Text().verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(Text().verticalScrollBar()->value(), 0);
}

TEST_F(FrmNewsTest, ClosesByEnterEscAndItsFrame) {
  desk.Open();
  QTest::keyClick(&Text(), Qt::Key_Return);
  EXPECT_TRUE(desk.IsClosed());
  ExpectClosesByEscAndByItsFrame(desk);
}

}  // namespace
}  // namespace korvanta

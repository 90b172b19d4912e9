#include "ui/frmNews.h"

#include <QScrollBar>
#include <ctime>

#include "tests/fakes/logged_in_player.h"
#include "tests/ui/side_windows.h"
#include "ui/text.h"

namespace korvanta {
namespace {

class FrmNewsTest : public testing::Test {
 protected:
  QPlainTextEdit& Text() { return desk.Get<QPlainTextEdit>("rbNews"); }

  fakes::LoggedInPlayer player;
  News news{player.connection};
  Desk<frmNews, News> desk{news};
};

TEST_F(FrmNewsTest, ShowsPlainTextWithEveryKindOfLineBreak) {
  news.ShowNews("a &amp; <b>b</b>\r\nc\rd\n\ne");
  desk.Open();
  EXPECT_EQ(desk.frame->windowTitle(), QStringLiteral("News"));
  EXPECT_EQ(Text().toPlainText(), QStringLiteral("a &amp; <b>b</b>\nc\nd\n\ne"));
  QTest::keyClicks(&Text(), QStringLiteral("read only"));
  EXPECT_EQ(Text().toPlainText(), QStringLiteral("a &amp; <b>b</b>\nc\nd\n\ne"));
  news.ShowNews("");
  EXPECT_EQ(Text().toPlainText(), QString());
}

TEST_F(FrmNewsTest, AWordWithoutAnEndNeitherFreezesNorWidensTheWindow) {
  desk.Open();
  const QSize size = desk.frame->size();
  const std::clock_t start = std::clock();
  news.ShowNews(std::string(300'000, 'W'));
  news.ShowNews("short again");
  QTest::qWait(0);
  EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
  EXPECT_EQ(desk.frame->size(), size);
  EXPECT_FALSE(Text().horizontalScrollBar()->isVisible());
}

TEST_F(FrmNewsTest, ClosesByEnterEscAndItsFrame) {
  desk.Open();
  QTest::keyClick(&Text(), Qt::Key_Return);
  EXPECT_TRUE(desk.IsClosed());
  ExpectClosesByEscAndByItsFrame(desk);
}

}  // namespace
}  // namespace korvanta

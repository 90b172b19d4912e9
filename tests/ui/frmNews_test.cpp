#include "ui/frmNews.h"

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

TEST_F(FrmNewsTest, ShowsEveryKindOfLineBreakAndIsReadOnly) {
  news.ShowNews("a b\r\nc\rd\n\ne");
  desk.Open();
  EXPECT_EQ(desk.frame->windowTitle(), QStringLiteral("News"));
  EXPECT_EQ(Text().toPlainText(), QStringLiteral("a b\nc\nd\n\ne"));
  QTest::keyClicks(&Text(), QStringLiteral("read only"));
  EXPECT_EQ(Text().toPlainText(), QStringLiteral("a b\nc\nd\n\ne"));
  news.ShowNews("");
  EXPECT_EQ(Text().toPlainText(), QString());
}

TEST_F(FrmNewsTest, ClosesByEnterEscAndItsFrame) {
  desk.Open();
  QTest::keyClick(&Text(), Qt::Key_Return);
  EXPECT_TRUE(desk.IsClosed());
  ExpectClosesByEscAndByItsFrame(desk);
}

}  // namespace
}  // namespace korvanta

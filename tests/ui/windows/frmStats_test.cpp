#include "ui/windows/frmStats.h"

#include <gmock/gmock.h>

#include "protocol/message_catalogue.h"
#include "tests/fakes/logged_in_player.h"
#include "tests/ui/windows/side_windows.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FrmStatsTest : public testing::Test {
 protected:
  static std::string Reply(const std::string& name, const std::string& text,
                           const std::string& codes) {
    std::string reply = name;
    for (int field = 1; field <= 11; ++field) {
      reply += '\001';
      reply += text;
    }
    return reply + "\001" + codes;
  }

  fakes::LoggedInPlayer player;
  Statistics statistics{player.connection, player.values};
  Desk<frmStats, Statistics> desk{statistics};
};

TEST_F(FrmStatsTest, OpensWithWhatIsThereAndTheNameToType) {
  statistics.ShowUserStatistics(Reply("Ann", "7", "11\00224"));
  desk.Open();
  EXPECT_EQ(desk.frame->windowTitle(), QStringLiteral("Search Online User"));
  EXPECT_EQ(desk.Get<QGroupBox>("frmUserData").title(), QStringLiteral("Statistics for 'Ann'"));
  EXPECT_EQ(desk.Get<QGroupBox>("frmAward").title(), QStringLiteral("Awards for 'Ann'"));
  EXPECT_TRUE(desk.Get<QLineEdit>("UserInput").hasFocus());
  EXPECT_EQ(desk.Get<QTreeView>("lstAwards").model()->rowCount(), 2);
  int y = 0;
  for (const StatisticsField& field : kStatisticsFields) {
    const auto& box = desk.Get<QLineEdit>(std::string(field.control).c_str());
    EXPECT_EQ(box.text(), QStringLiteral("7"));
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_GT(box.y(), y) << field.control;
    y = box.y();
  }
}

TEST_F(FrmStatsTest, EnterAndTheButtonSearchForWhatIsTyped) {
  desk.Open();
  player.TakeSent();
  auto& input = desk.Get<QLineEdit>("UserInput");
  QTest::keyClicks(&input, QStringLiteral(" Ann"));
  QTest::keyClick(&input, Qt::Key_Return);
  QTest::mouseClick(&desk.Get<QPushButton>("btnLoad"), Qt::LeftButton);
  const std::string request = outbound::LookUpStatistics(" Ann");
  EXPECT_THAT(player.TakeSent(), ElementsAre(request, request));
}

TEST_F(FrmStatsTest, ClosesByEscAndByItsFrame) {
  ExpectClosesByEscAndByItsFrame(desk);
  statistics.ShowUserStatistics(Reply("Ann", "7", "1"));
  EXPECT_FALSE(desk.frame);
}

}  // namespace
}  // namespace korvanta

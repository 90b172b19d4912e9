#include <QGroupBox>
#include <QTreeView>
#include <gmock/gmock.h>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

TEST_F(MainWindowTest, StatisticsOpenWithWhatIsThereAndTheNameToType) {
  client.statistics.ShowUserStatistics(
      "Ann\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\0017\00111\00224");
  EXPECT_EQ(Open("frmStats").windowTitle(), QStringLiteral("Search Online User"));
  EXPECT_EQ(Get<QGroupBox>("frmUserData").title(), QStringLiteral("Statistics for 'Ann'"));
  EXPECT_EQ(Get<QGroupBox>("frmAward").title(), QStringLiteral("Awards for 'Ann'"));
  EXPECT_TRUE(Get("UserInput").hasFocus());
  EXPECT_EQ(Get<QTreeView>("lstAwards").model()->rowCount(), 2);
  int y = 0;
  for (const StatisticsField& field : kStatisticsFields) {
    const auto& box = Get<QLineEdit>(std::string(field.control));
    EXPECT_EQ(box.text(), QStringLiteral("7"));
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_GT(box.y(), std::exchange(y, box.y())) << field.control;
  }
}

TEST_F(MainWindowTest, EnterAndTheButtonSearchForWhatIsTyped) {
  LogIn();
  Open("frmStats");
  TakeSent();
  QTest::keyClicks(&Get("UserInput"), QStringLiteral(" Ann"));
  QTest::keyClick(&Get("UserInput"), Qt::Key_Return);
  Click("btnLoad");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[bre] Ann"), Message("[bre] Ann")));
}

}  // namespace
}  // namespace korvanta

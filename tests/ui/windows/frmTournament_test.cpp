#include <QComboBox>
#include <QTabBar>
#include <QTreeView>
#include <gmock/gmock.h>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

class FrmTournamentTest : public MainWindowTest {
 protected:
  void OpenAs(const std::string& user_id) {
    LogIn(user_id);
    Open("frmTournament");
    TakeSent();
  }
  QTabBar& Tabs() { return Get<QTabBar>("TStrip"); }
  QComboBox& Names() { return Get<QComboBox>("cmbTeam"); }
  void ClickTab(int index) {
    QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(index).center());
  }
  std::string Page() const {
    std::string pages;
    for (const char* page : {"fInfo", "fTeams", "fAdmin"}) {
      pages += Get(page).isVisible() ? page : "";
    }
    return pages;
  }
};

TEST_F(FrmTournamentTest, TabsShowTheirPageAndAskOncePerChoice) {
  OpenAs("90");
  EXPECT_EQ(Tabs().tabText(0) + Tabs().tabText(1) + Tabs().tabText(2),
            QStringLiteral("&Info&Teams&Admin"));
  EXPECT_EQ(Page(), "fInfo");
  ClickTab(1);
  ClickTab(1);
  EXPECT_EQ(Page(), "fTeams");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[ttm]"), Message("[ttm]")));
  Tabs().setFocus();
  QTest::keyClick(&Tabs(), Qt::Key_Right);
  EXPECT_EQ(Page(), "fAdmin");
  TurnWheelUpAndDown(Tabs());
  QTest::keyClick(Tabs().window(), Qt::Key_I, Qt::AltModifier);
  Receive("[ttm]A");
  EXPECT_EQ(Page(), "fInfo");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[tif]")));
}

TEST_F(FrmTournamentTest, NewTeamNamesLeaveWhatIsTypedAlone) {
  OpenAs("0");
  EXPECT_EQ(Tabs().count(), 2);
  QLineEdit& box = *Names().lineEdit();
  const struct {
    int start, length, caret;
    const char* selected;
  } selections[] = {{1, 2, 3, "ea"}, {3, -2, 1, "ea"}, {2, 0, 2, ""}};
  for (const auto& c : selections) {
    Receive("[tdd]");
    Type(Names(), "Team");
    box.setSelection(c.start, c.length);
    Receive("[tdd]Teams\001team\001Team");
    EXPECT_EQ(box.text(), QStringLiteral("Team"));
    EXPECT_EQ(box.selectedText(), QLatin1String(c.selected));
    EXPECT_EQ(box.cursorPosition(), c.caret);
  }
  Receive("[tdd]Teams\001Owls\001Team\001Foxes");
  ASSERT_EQ(Names().count(), 4);
  EXPECT_EQ(Names().itemText(0) + Names().itemText(1), QStringLiteral("TeamsOwls"));
}

TEST_F(FrmTournamentTest, EveryButtonSendsItsRequest) {
  OpenAs("90");
  Type(Names(), "an");
  auto& password = Get<QLineEdit>("txtPassword");
  Type(password, "secret");
  EXPECT_EQ(password.displayText(), QStringLiteral("******"));
  ClickTab(1);
  Receive("[ttm]Team\002 Ann\002 Bob");
  auto& teams = Get<QTreeView>("lstTeams");
  const QRect ann = teams.visualRect(teams.model()->index(1, 0));
  QTest::mouseClick(teams.viewport(), Qt::LeftButton, {}, ann.center());
  QTest::keyClick(&teams, Qt::Key_Down);
  Receive("[tif]1\0012\0013\0014");
  EXPECT_TRUE(teams.selectionModel()->hasSelection());
  const struct {
    int tab;
    const char *button, *request;
  } cases[] = {{0, "Command4", "[tjo]an\001secret\001"},
               {1, "KickPlayer", "[tkp]Bob"},
               {1, "btnDisband", "[tdb]"},
               {2, "Command2", "[tst]"},
               {2, "Command3", "[ted]"}};
  platform.message_box.answers = {true, true};
  for (const auto& c : cases) {
    ClickTab(c.tab);
    TakeSent();
    Click(c.button);
    EXPECT_THAT(TakeSent(), ElementsAre(Message(c.request)));
  }
  Receive("[ttm]Team\002 Ann\002 Bob");
  EXPECT_FALSE(teams.selectionModel()->hasSelection());
}

}  // namespace
}  // namespace korvanta

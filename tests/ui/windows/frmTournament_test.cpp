#include <QComboBox>
#include <QTabBar>
#include <QTreeView>
#include <gmock/gmock.h>

#include "tests/ui/main_window_test.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
  ASSERT_EQ(Tabs().count(), 3);
  EXPECT_EQ(Page(), "fInfo");
  ClickTab(1);
  ClickTab(1);
  EXPECT_EQ(Page(), "fTeams");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[ttm]"), Message("[ttm]")));
  Tabs().setFocus();
  QTest::keyClick(&Tabs(), Qt::Key_Right);
  EXPECT_EQ(Page(), "fAdmin");
  QTest::keyClick(Tabs().window(), Qt::Key_I, Qt::AltModifier);
  Receive("[ttm]A");
  EXPECT_EQ(Page(), "fInfo");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[tif]")));
}

TEST_F(FrmTournamentTest, JoinsTheTeamTypedOrChosenAndForgetsThePassword) {
  OpenAs("0");
  EXPECT_EQ(Tabs().count(), 2);
  Receive("[tdd]ann\001Ann\001Ann");
  EXPECT_EQ(Names().currentText(), QString());
  auto& password = Get<QLineEdit>("txtPassword");
  Type(Names(), "an");
  Type(password, "secret");
  EXPECT_EQ(password.displayText(), QStringLiteral("******"));
  Click("Command4");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[tjo]an\001secret\001")));
  EXPECT_EQ(password.text(), QString());
  EXPECT_EQ(Names().count(), 3);
  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Down);
  QTest::keyClick(&Names(), Qt::Key_Down);
  Type(password, "s");
  Click("Command4");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[tjo]Ann\001s\001")));
}

TEST_F(FrmTournamentTest, NewTeamNamesAndFiguresLeaveWhatIsTypedAlone) {
  OpenAs("0");
  QLineEdit& box = *Names().lineEdit();
  const struct {
    int start, length, caret;
    const char* selected;
  } selections[] = {{1, 2, 3, "ea"}, {3, -2, 1, "ea"}, {2, 0, 2, ""}};
  for (const auto& c : selections) {
    Type(Names(), "Team");
    box.setSelection(c.start, c.length);
    Receive("[tdd]Team\001Other" + std::to_string(c.start));
    Receive("[tif]50\001350\0013\00111");
    EXPECT_EQ(box.text(), QStringLiteral("Team"));
    EXPECT_EQ(box.selectedText(), QLatin1String(c.selected));
    EXPECT_EQ(box.cursorPosition(), c.caret);
  }
  for (const auto& [figure, text] : {std::pair{"iEntryFee", "50"},
                                     {"txtPurse", "350"},
                                     {"iMaxTeams", "3"},
                                     {"iMaxPlayers", "11"}}) {
    EXPECT_EQ(Get<QLineEdit>(figure).text(), QLatin1String(text));
  }
}

TEST_F(FrmTournamentTest, TheSelectionIsWhoIsKickedAndGoesWithTheList) {
  OpenAs("0");
  ClickTab(1);
  Receive("[ttm]Team\002 Ann\002 Bob");
  auto& teams = Get<QTreeView>("lstTeams");
  const QRect ann = teams.visualRect(teams.model()->index(1, 0));
  QTest::mouseClick(teams.viewport(), Qt::LeftButton, {}, ann.center());
  QTest::keyClick(&teams, Qt::Key_Down);
  Receive("[tif]1\0012\0013\0014");
  TakeSent();
  platform.message_box.answers = {true, true};
  Click("KickPlayer");
  Click("btnDisband");
  EXPECT_THAT(TakeSent(), ElementsAre(Message("[tkp]Bob"), Message("[tdb]")));
  Receive("[ttm]Team\002 Ann\002 Bob");
  EXPECT_FALSE(teams.selectionModel()->hasSelection());
}

TEST_F(FrmTournamentTest, AdministratorsButtonsSendTheirRequests) {
  OpenAs("90");
  ClickTab(2);
  Type(Get("EntryFee"), "50");
  Type(Get("MaxTeams"), "4");
  Type(Get("MaxPlayers"), "3");
  for (const char* button : {"Command1", "Command2", "Command3"}) {
    Click(button);
  }
  EXPECT_THAT(TakeSent(),
              ElementsAre(Message("[tcr]50\0014\0013\001"), Message("[tst]"), Message("[ted]")));
}

}  // namespace
}  // namespace korvanta

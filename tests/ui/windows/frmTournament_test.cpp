#include "ui/windows/frmTournament.h"

#include <QTreeView>
#include <gmock/gmock.h>

#include "protocol/message_catalogue.h"
#include "tests/fakes/logged_in_player.h"
#include "tests/ui/windows/side_windows.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FrmTournamentTest : public testing::Test {
 protected:
  void OpenAs(std::int16_t user_id) {
    player.values.UserID = user_id;
    desk.Open();
    player.TakeSent();
  }
  QTabBar& Tabs() { return desk.Get<QTabBar>("TStrip"); }
  QComboBox& Names() { return desk.Get<QComboBox>("cmbTeam"); }
  QTreeView& Teams() { return desk.Get<QTreeView>("lstTeams"); }
  void ClickTab(int index) {
    QTest::mouseClick(&Tabs(), Qt::LeftButton, {}, Tabs().tabRect(index).center());
  }
  void ClickTeam(int row) {
    const QModelIndex index = Teams().model()->index(row, 0);
    QTest::mouseClick(Teams().viewport(), Qt::LeftButton, {}, Teams().visualRect(index).center());
  }
  void Click(const char* name) { QTest::mouseClick(&desk.Get<QPushButton>(name), Qt::LeftButton); }
  const TournamentState& state() const { return tournament.state(); }

  fakes::LoggedInPlayer player;
  fakes::FakeMessageBox message_box;
  Tournament tournament{player.connection, player.values, message_box};
  Desk<frmTournament, Tournament> desk{tournament};
};

TEST_F(FrmTournamentTest, TabsShowTheirPageAndAskOncePerChoice) {
  OpenAs(90);
  ASSERT_EQ(Tabs().count(), 3);
  auto& info = desk.Get<QGroupBox>("fInfo");
  auto& teams = desk.Get<QGroupBox>("fTeams");
  auto& admin = desk.Get<QGroupBox>("fAdmin");
  EXPECT_TRUE(info.isVisible());

  ClickTab(1);
  EXPECT_TRUE(teams.isVisible() && !info.isVisible() && !admin.isVisible());
  ClickTab(1);
  const std::string list = outbound::RequestTeamList();
  EXPECT_THAT(player.TakeSent(), ElementsAre(list, list));

  Tabs().setFocus();
  QTest::keyClick(&Tabs(), Qt::Key_Right);
  EXPECT_TRUE(admin.isVisible() && !teams.isVisible());
  EXPECT_THAT(player.TakeSent(), IsEmpty());
  QTest::keyClick(desk.frame.get(), Qt::Key_I, Qt::AltModifier);
  EXPECT_TRUE(info.isVisible() && !admin.isVisible());
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestTournamentInfo()));

  tournament.ShowTeamList("A");
  EXPECT_TRUE(info.isVisible());
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

TEST_F(FrmTournamentTest, JoinsTheTeamTypedOrChosenAndForgetsThePassword) {
  OpenAs(0);
  tournament.ShowTeamNames("ann\001Ann\001Ann");
  EXPECT_EQ(Names().currentText(), QString());
  QTest::keyClicks(&Names(), QStringLiteral("an"));
  EXPECT_EQ(Names().currentText(), QStringLiteral("an"));
  auto& password = desk.Get<QLineEdit>("txtPassword");
  QTest::keyClicks(&password, QStringLiteral("secret"));
  EXPECT_EQ(password.displayText(), QStringLiteral("******"));
  QTest::keyClick(&password, Qt::Key_Return);
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::JoinTeam("an", "secret")));
  EXPECT_EQ(password.text(), QString());
  EXPECT_EQ(Names().count(), 3);

  Names().setFocus();
  QTest::keyClick(&Names(), Qt::Key_Down);
  QTest::keyClick(&Names(), Qt::Key_Down);
  QTest::keyClicks(&password, QStringLiteral("s"));
  Click("Command4");
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::JoinTeam("Ann", "s")));
}

TEST_F(FrmTournamentTest, NewTeamNamesLeaveWhatIsTypedAlone) {
  OpenAs(0);
  QLineEdit& box = *Names().lineEdit();
  for (const bool backwards : {false, true}) {
    box.clear();
    QTest::keyClicks(&Names(), QStringLiteral("Team"));
    box.setSelection(backwards ? 3 : 1, backwards ? -2 : 2);
    tournament.ShowTeamNames(backwards ? "X" : "Team\001Other");
    EXPECT_EQ(box.text(), QStringLiteral("Team"));
    EXPECT_EQ(box.selectedText(), QStringLiteral("ea"));
    EXPECT_EQ(box.cursorPosition(), backwards ? 1 : 3);
    EXPECT_EQ(state().texts.cmbTeam, "Team");
  }
}

TEST_F(FrmTournamentTest, AnOrdinaryUserSeesTheFiguresAndNoAdminTab) {
  OpenAs(89);
  EXPECT_EQ(Tabs().count(), 2);
  tournament.ShowTournamentInfo("50\001350\0013\00111");
  for (const auto& [box, text] : {std::pair{"iEntryFee", "50"},
                                  {"txtPurse", "350"},
                                  {"iMaxTeams", "3"},
                                  {"iMaxPlayers", "11"}}) {
    EXPECT_EQ(desk.Get<QLineEdit>(box).text(), QLatin1String(text));
  }
}

TEST_F(FrmTournamentTest, TheSelectionIsWhoIsKickedAndGoesWithTheList) {
  OpenAs(0);
  ClickTab(1);
  tournament.ShowTeamList("Team\002 Ann\002 Bob");
  EXPECT_EQ(Teams().model()->rowCount(), 3);
  ClickTeam(1);
  EXPECT_EQ(state().selected_team, 1U);
  QTest::keyClick(&Teams(), Qt::Key_Down);
  player.TakeSent();
  message_box.answers = {true};
  Click("KickPlayer");
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::KickPlayer("Bob")));

  tournament.ShowTournamentInfo("1\0012\0013\0014");
  EXPECT_EQ(state().selected_team, 2U);
  EXPECT_TRUE(Teams().selectionModel()->hasSelection());
  tournament.ShowTeamList("Team\002 Ann\002 Bob");
  EXPECT_FALSE(Teams().selectionModel()->hasSelection());
  Click("KickPlayer");
  EXPECT_THAT(message_box.shown, ElementsAre("Korvanta: You must choose a player to kick!"));
}

TEST_F(FrmTournamentTest, AdministratorsButtonsSendTheirRequests) {
  OpenAs(90);
  ClickTab(2);
  QTest::keyClicks(&desk.Get<QLineEdit>("EntryFee"), QStringLiteral("50"));
  QTest::keyClicks(&desk.Get<QLineEdit>("MaxTeams"), QStringLiteral("4"));
  QTest::keyClicks(&desk.Get<QLineEdit>("MaxPlayers"), QStringLiteral("3"));
  QTest::keyClick(&desk.Get<QLineEdit>("MaxPlayers"), Qt::Key_Return);
  EXPECT_THAT(player.TakeSent(), IsEmpty());
  EXPECT_THAT(message_box.shown, IsEmpty());
  Click("Command1");
  Click("Command2");
  Click("Command3");
  EXPECT_THAT(player.TakeSent(),
              ElementsAre(outbound::StartTournament("50", "4", "3"), outbound::SetTournamentGame(),
                          outbound::EndTournament()));
}

TEST_F(FrmTournamentTest, ClosesByEscAndByItsFrame) {
  player.values.UserID = 90;
  ExpectClosesByEscAndByItsFrame(desk);
  EXPECT_THAT(player.TakeSent().size(), 2U);
}

}  // namespace
}  // namespace korvanta

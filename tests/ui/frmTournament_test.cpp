#include "ui/frmTournament.h"

#include <QAbstractItemView>
#include <QTreeView>
#include <QWheelEvent>
#include <gmock/gmock.h>

#include "protocol/message_catalogue.h"
#include "tests/fakes/logged_in_player.h"
#include "tests/ui/side_windows.h"
#include "ui/text.h"

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
  void ClickTab(int index, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&Tabs(), button, {}, Tabs().tabRect(index).center());
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

TEST_F(FrmTournamentTest, IsAToolWindowOfFixedSizeInTheMiddleOfItsOwner) {
  OpenAs(0);
  EXPECT_EQ(desk.frame->windowTitle(), QStringLiteral("Tournament Window"));
  const Qt::WindowFlags flags = desk.frame->windowFlags();
  EXPECT_EQ(flags & Qt::WindowType_Mask, Qt::Tool);
  EXPECT_FALSE(flags & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint));
  EXPECT_EQ(desk.frame->minimumSize(), desk.frame->maximumSize());
  const QPoint off = desk.frame->geometry().center() - desk.owner.geometry().center();
  EXPECT_LE(off.manhattanLength(), 4);
  EXPECT_TRUE(Names().lineEdit()->hasFocus() || Names().hasFocus());
}

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
  ClickTab(1, Qt::RightButton);
  QWheelEvent wheel({5, 5}, Tabs().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Tabs(), &wheel);
  EXPECT_THAT(player.TakeSent(), IsEmpty());

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

TEST_F(FrmTournamentTest, OrdinaryUsersHaveNoAdminTab) {
  OpenAs(89);
  ASSERT_EQ(Tabs().count(), 2);
  player.values.UserID = 90;
  Tabs().setFocus();
  QTest::keyClick(&Tabs(), Qt::Key_Right);
  QTest::keyClick(&Tabs(), Qt::Key_Right);
  EXPECT_EQ(Tabs().count(), 2);
  EXPECT_TRUE(desk.Get<QGroupBox>("fTeams").isVisible());
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
  QTest::keyClick(&password, Qt::Key_Z, Qt::ControlModifier);
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
  tournament.ShowTeamNames("");
  EXPECT_EQ(Names().count(), 0);
  EXPECT_EQ(box.text(), QStringLiteral("Team"));
}

TEST_F(FrmTournamentTest, FiguresCanBeTypedOverAndAreOverwrittenByTheNextReply) {
  OpenAs(0);
  tournament.ShowTournamentInfo("50\001350\0013\00111");
  auto& purse = desk.Get<QLineEdit>("txtPurse");
  EXPECT_EQ(purse.text(), QStringLiteral("350"));
  QTest::keyClicks(&purse, QStringLiteral("9"));
  EXPECT_EQ(state().texts.txtPurse, "9350");
  tournament.ShowTournamentInfo("50\001400\0013\00111");
  EXPECT_EQ(purse.text(), QStringLiteral("400"));
}

TEST_F(FrmTournamentTest, TheSelectionIsWhoIsKickedAndGoesWithTheList) {
  OpenAs(0);
  ClickTab(1);
  tournament.ShowTeamList("Team\002 Ann\002 Bob");
  EXPECT_EQ(Teams().model()->rowCount(), 3);
  EXPECT_EQ(Teams().model()->headerData(0, Qt::Horizontal),
            QVariant(QStringLiteral("Team Information")));
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

TEST_F(FrmTournamentTest, TheFirstArrowKeySelectsTheFirstTeam) {
  OpenAs(0);
  tournament.ShowTeamList("Team\002 Ann");
  ClickTab(1);
  EXPECT_TRUE(Teams().hasFocus());
  EXPECT_EQ(state().selected_team, std::nullopt);
  QTest::keyClick(&Teams(), Qt::Key_Down);
  EXPECT_EQ(state().selected_team, 0U);
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

TEST_F(FrmTournamentTest, LongTextsDoNotGrowTheWindow) {
  OpenAs(90);
  const QSize size = desk.frame->size();
  const std::string word(40'000, 'W');
  tournament.ShowTournamentInfo(word + "\0012\0013\0014");
  tournament.ShowTeamNames(word + "\001b\r\n<i>");
  std::string teams = "two\nlines";
  for (int i = 0; i < 300; ++i) {
    teams += "\002" + word;
  }
  tournament.ShowTeamList(teams);
  ClickTab(1);
  QTest::qWait(0);
  EXPECT_EQ(desk.frame->size(), size);
  EXPECT_EQ(desk.Get<QLineEdit>("iEntryFee").text(), ToQString(word));
  EXPECT_EQ(Names().itemText(1), QStringLiteral("b\r\n<i>"));
  const QModelIndex first = Teams().model()->index(0, 0);
  EXPECT_EQ(first.data(), QVariant(QStringLiteral("two\nlines")));
  EXPECT_EQ(Teams().visualRect(first).height(),
            Teams().visualRect(Teams().model()->index(1, 0)).height());
  EXPECT_LT(Teams().visualRect(first).height(), 2 * Teams().fontMetrics().height());
}

TEST_F(FrmTournamentTest, EveryControlIsNamedAndNoAccessKeyDoubled) {
  OpenAs(90);
  EXPECT_EQ(NamelessControls(*desk.frame), "");
  const std::pair<int, int> keys_on_tabs[] = {{0, 10}, {1, 5}, {2, 9}};
  for (const auto& [tab, count] : keys_on_tabs) {
    ClickTab(tab);
    QStringList keys = AccessKeys(*desk.frame);
    EXPECT_EQ(keys.size(), count) << tab;
    EXPECT_EQ(keys.removeDuplicates(), 0) << tab;
  }
}

TEST_F(FrmTournamentTest, ClosesByEscAndByItsFrame) {
  ExpectClosesByEscAndByItsFrame(desk);
  EXPECT_THAT(player.TakeSent().size(), 2U);
}

}  // namespace
}  // namespace korvanta

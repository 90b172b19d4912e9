#include "board/tournament.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TournamentTest : public testing::Test {
 protected:
  const TournamentState& state() const { return tournament.state(); }

  /// Opens the window; forgets what loading it sent.
  void Open() {
    tournament.ShowTournamentWindow();
    player.TakeSent();
  }
  void Type(std::string TournamentTexts::*box, std::string_view text) {
    tournament.Typed(box, text);
  }
  /// "key text" of each entry.
  std::vector<std::string> Teams() const {
    std::vector<std::string> teams;
    for (const TeamListEntry& entry : state().lstTeams) {
      teams.push_back(entry.key + " " + entry.text);
    }
    return teams;
  }
  std::vector<std::string> TakeShown() { return std::exchange(message_box.shown, {}); }

  fakes::LoggedInPlayer player;
  fakes::FakeMessageBox message_box;
  Tournament tournament{player.connection, player.values, message_box};
};

TEST_F(TournamentTest, LoadingSettlesTheAdminTabAndAsksForTheFigures) {
  const std::pair<std::int16_t, bool> cases[] = {{-1, false}, {89, false}, {90, true}, {300, true}};
  for (const auto& [id, is_admin] : cases) {
    player.values.UserID = id;
    tournament.ShowTournamentWindow();
    player.values.UserID = is_admin ? 0 : 90;
    tournament.ShowTournamentWindow();
    EXPECT_EQ(state().has_admin_tab, is_admin) << id;
    EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestTournamentInfo()));

    Type(&TournamentTexts::EntryFee, "5");
    tournament.ShowTeamList("a");
    tournament.ShowTeamNames("a");
    tournament.TabChosen(TournamentTab::Teams);
    tournament.window().Unload();
    player.TakeSent();
  }
  player.Disconnected();
  tournament.ShowTournamentWindow();
  EXPECT_THAT(player.TakeSent(), IsEmpty());
  TournamentState fresh;
  fresh.has_admin_tab = state().has_admin_tab;
  EXPECT_EQ(state(), fresh);
}

TEST_F(TournamentTest, InboundMessagesCreateTheWindowUnseen) {
  player.OnlyHandshake();
  void (Tournament::*const handlers[])(std::string_view) = {
      &Tournament::ShowTournamentInfo, &Tournament::ShowTeamList, &Tournament::ShowTeamNames};
  for (const auto handler : handlers) {
    (tournament.*handler)("1\0012\0013\0014");
    EXPECT_EQ(tournament.window().state(), WindowLife::State::Hidden);
    EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestTournamentInfo()));
    tournament.window().Unload();
  }
}

TEST_F(TournamentTest, FiguresAreShownUpToTheFirstMissingOne) {
  struct Case {
    const char* payload;
    bool broken;
    const char* shown;  // fee|purse|teams|players
  };
  const Case cases[] = {
      {"a\001b\001c\001d", false, "a|b|c|d"},
      {"", true, "|old||"},
      {"a\001b\001c", true, "a|b|c|"},
      {"\001\001\001", false, "|||"},
  };
  int changes = 0;
  tournament.on_changed = [&] { ++changes; };
  for (const auto& [payload, broken, shown] : cases) {
    tournament.ShowTournamentInfo("old\001old\001old\001old");
    changes = 0;
    if (broken) {
      EXPECT_THROW(tournament.ShowTournamentInfo(payload), MessageError) << payload;
    } else {
      tournament.ShowTournamentInfo(payload);
    }
    const TournamentTexts& texts = state().texts;
    EXPECT_EQ(
        texts.iEntryFee + "|" + texts.txtPurse + "|" + texts.iMaxTeams + "|" + texts.iMaxPlayers,
        shown)
        << payload;
    EXPECT_EQ(changes, 1);
  }
}

TEST_F(TournamentTest, ListsSkipEmptyRecordsAndKeepTheirPositionsAsKeys) {
  Open();
  tournament.ShowTeamList("A\002\002 C \001x");
  EXPECT_THAT(Teams(), ElementsAre("S0 A", "S2  C \001x"));
  tournament.TeamSelected(1);
  tournament.ShowTeamList("A\002B");
  EXPECT_EQ(state().selected_team, std::nullopt);
  tournament.ShowTeamList("");
  EXPECT_THAT(Teams(), IsEmpty());

  Type(&TournamentTexts::cmbTeam, "typed");
  tournament.ShowTeamNames("B\001\001A\001A");
  EXPECT_THAT(state().team_names, ElementsAre("B", "A", "A"));
  tournament.ShowTeamNames("");
  EXPECT_THAT(state().team_names, IsEmpty());
  EXPECT_EQ(state().texts.cmbTeam, "typed");
  EXPECT_EQ(state().chosen_tab, TournamentTab::Info);
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

TEST_F(TournamentTest, ChoosingATabAsksForWhatItShowsEveryTime) {
  player.values.UserID = 90;
  Open();
  for (int times = 0; times < 2; ++times) {
    tournament.TabChosen(TournamentTab::Teams);
    EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestTeamList()));
  }
  EXPECT_EQ(state().chosen_tab, TournamentTab::Teams);
  tournament.TabChosen(TournamentTab::Admin);
  EXPECT_THAT(player.TakeSent(), IsEmpty());
  EXPECT_EQ(state().chosen_tab, TournamentTab::Admin);
  tournament.TabChosen(TournamentTab::Info);
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestTournamentInfo()));

  tournament.window().Unload();
  player.values.UserID = 89;
  Open();
  tournament.TabChosen(TournamentTab::Admin);
  EXPECT_EQ(state().chosen_tab, TournamentTab::Info);
}

TEST_F(TournamentTest, CreateJoinWantsANameAndAPassword) {
  Open();
  for (const auto& [name, message] :
       {std::pair{"   ", "Korvanta: Please Enter a Team Name or Choose one!"},
        {"Team", "Korvanta: Please Enter a Team Password!"}}) {
    Type(&TournamentTexts::cmbTeam, name);
    Type(&TournamentTexts::txtPassword, "  ");
    tournament.CreateJoinClicked();
    EXPECT_THAT(TakeShown(), ElementsAre(message));
    EXPECT_EQ(message_box.icons.back(), MessageIcon::None);
    EXPECT_THAT(player.TakeSent(), IsEmpty());
  }

  Type(&TournamentTexts::cmbTeam, " Team ");
  Type(&TournamentTexts::txtPassword, " s ");
  tournament.CreateJoinClicked();
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::JoinTeam(" Team ", " s ")));
  EXPECT_EQ(state().texts.txtPassword, "");
}

TEST_F(TournamentTest, KickingAsksAboutTheSelectedPlayerAndSendsThatName) {
  Open();
  tournament.ShowTeamList("Team\002  Ann \002   ");
  for (const std::optional<std::size_t> none : {std::optional<std::size_t>(), {2}, {3}}) {
    tournament.TeamSelected(none);
    tournament.KickPlayerClicked();
    EXPECT_THAT(TakeShown(), ElementsAre("Korvanta: You must choose a player to kick!"));
  }

  tournament.TeamSelected(1);
  message_box.answers = {false};
  tournament.KickPlayerClicked();
  EXPECT_THAT(player.TakeSent(), IsEmpty());

  message_box.answers = {true};
  message_box.meanwhile = [&] { tournament.ShowTeamList("Bob\002Cid"); };
  tournament.KickPlayerClicked();
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::KickPlayer("Ann")));
  EXPECT_EQ(message_box.asked.back(), "Korvanta: Are you sure you wish to kick this player?");
}

TEST_F(TournamentTest, DisbandingNeedsASelectionAndAYes) {
  Open();
  tournament.DisbandTeamClicked();
  tournament.ShowTeamList("   \002Ann");
  tournament.DisbandTeamClicked();
  EXPECT_THAT(message_box.shown, IsEmpty());
  EXPECT_THAT(message_box.asked, IsEmpty());

  tournament.TeamSelected(0);
  message_box.answers = {false, true};
  tournament.DisbandTeamClicked();
  EXPECT_THAT(player.TakeSent(), IsEmpty());
  tournament.DisbandTeamClicked();
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::DisbandTeam()));
  EXPECT_EQ(message_box.asked.back(), "Korvanta: Are you sure you wish to disband your team?");
}

TEST_F(TournamentTest, AdministratorsSendWhatTheyTyped) {
  player.OnlyHandshake();
  Open();
  tournament.StartTournamentClicked();
  Type(&TournamentTexts::EntryFee, " 50");
  Type(&TournamentTexts::MaxTeams, "four");
  Type(&TournamentTexts::MaxPlayers, "3");
  Type(&TournamentTexts::cmbTeam, "Team");
  Type(&TournamentTexts::txtPassword, "secret");
  tournament.StartTournamentClicked();
  tournament.SetTournamentGameClicked();
  tournament.EndTournamentClicked();
  EXPECT_THAT(player.TakeSent(),
              ElementsAre(outbound::StartTournament("", "", ""),
                          outbound::StartTournament(" 50", "four", "3"),
                          outbound::SetTournamentGame(), outbound::EndTournament()));
  player.Disconnected();
  tournament.StartTournamentClicked();
  tournament.SetTournamentGameClicked();
  tournament.EndTournamentClicked();
  tournament.CreateJoinClicked();
  tournament.TabChosen(TournamentTab::Teams);
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

}  // namespace
}  // namespace korvanta

#include "board/tournament.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TournamentTest : testing::Test, fakes::LoggedInPlayer {
  const TournamentState& state() const { return tournament.state(); }

  Tournament tournament{connection, values, message_box};
};

TEST_F(TournamentTest, LoadingSettlesTheAdminTabAndEveryChoiceOfATabAsksForWhatItShows) {
  using enum TournamentTab;
  const std::pair<TournamentTab, const char*> tabs[] = {
      {Info, "[tif];[tif];"}, {Teams, "[ttm];[ttm];"}, {Admin, ""}};
  TournamentState fresh;
  const std::pair<std::int16_t, bool> cases[] = {{-1, false}, {89, false}, {90, true}, {300, true}};
  for (const auto& [id, is_admin] : cases) {
    values.UserID = id;
    tournament.ShowTournamentWindow();
    values.UserID = is_admin ? 0 : 90;
    tournament.ShowTournamentWindow();
    fresh.has_admin_tab = is_admin;
    EXPECT_EQ(state(), fresh) << id;
    EXPECT_EQ(Sent(), "[tif];");

    tournament.Typed(&TournamentTexts::EntryFee, "5");
    tournament.ShowTeamList("a");
    tournament.ShowTeamNames("a");
    for (const auto& [tab, sent] : tabs) {
      tournament.TabChosen(tab);
      tournament.TabChosen(tab);
      EXPECT_EQ(Sent(), sent) << id;
      EXPECT_EQ(state().chosen_tab, tab == Admin && !is_admin ? Teams : tab) << id;
    }
    tournament.window().Unload();
  }
}

TEST_F(TournamentTest, FiguresAreShownUpToTheFirstMissingOne) {
  const struct {
    const char* payload;
    bool broken;
    const char* shown;  // fee|purse|teams|players
  } cases[] = {
      {"a\001b\001c\001d", false, "a|b|c|d"},
      {"", true, "|old||"},
      {"a\001b\001c", true, "a|b|c|"},
  };
  const TournamentTexts& texts = state().texts;
  for (const auto& [payload, broken, shown] : cases) {
    tournament.ShowTournamentInfo("old\001old\001old\001old");
    int changes = 0;
    tournament.on_changed = [&changes] { ++changes; };
    if (broken) {
      EXPECT_THROW(tournament.ShowTournamentInfo(payload), MessageError) << payload;
    } else {
      tournament.ShowTournamentInfo(payload);
    }
    tournament.on_changed = nullptr;
    EXPECT_EQ(
        texts.iEntryFee + "|" + texts.txtPurse + "|" + texts.iMaxTeams + "|" + texts.iMaxPlayers,
        shown);
    EXPECT_EQ(changes, 1);
  }
}

TEST_F(TournamentTest, ListsSkipEmptyRecords) {
  tournament.ShowTeamList("A\002\002 C \001x");
  EXPECT_THAT(state().lstTeams, ElementsAre("A", " C \001x"));
  tournament.TeamSelected(1);
  tournament.ShowTeamList("A\002B");
  EXPECT_EQ(state().selected_team, std::nullopt);
  tournament.ShowTeamList("");
  EXPECT_THAT(state().lstTeams, IsEmpty());

  tournament.ShowTeamNames("B\001\001A\001A");
  EXPECT_THAT(state().team_names, ElementsAre("B", "A", "A"));
  tournament.Typed(&TournamentTexts::cmbTeam, "typed");
  tournament.ShowTeamNames("");
  EXPECT_THAT(state().team_names, IsEmpty());
  EXPECT_EQ(state().texts.cmbTeam, "typed");
}

TEST_F(TournamentTest, CreateJoinWantsANameAndAPassword) {
  const struct {
    const char *name, *password, *box, *sent, *password_after;
  } cases[] = {{"   ", "  ", "Korvanta: Please Enter a Team Name or Choose one!", "", "  "},
               {"Team", "  ", "Korvanta: Please Enter a Team Password!", "", "  "},
               {" Team ", " s ", nullptr, "[tjo] Team , s ,;", ""}};
  for (const auto& c : cases) {
    tournament.Typed(&TournamentTexts::cmbTeam, c.name);
    tournament.Typed(&TournamentTexts::txtPassword, c.password);
    tournament.CreateJoinClicked();
    EXPECT_EQ(std::exchange(message_box.shown, {}),
              c.box ? std::vector<std::string>{c.box} : std::vector<std::string>());
    EXPECT_EQ(Sent(), c.sent);
    EXPECT_EQ(state().texts.txtPassword, c.password_after);
  }
}

TEST_F(TournamentTest, KickingAndDisbandingNeedASelectionAndAYes) {
  const std::string nobody = "Korvanta: You must choose a player to kick!";
  const std::string kick = "Korvanta: Are you sure you wish to kick this player?";
  const std::string disband = "Korvanta: Are you sure you wish to disband your team?";
  const struct {
    std::optional<std::size_t> selected;
    std::vector<std::string> boxes;
    const char* sent;
  } cases[] = {{{}, {nobody}, ""},
               {3, {nobody}, ""},
               {2, {nobody, disband}, "[tdb];"},
               {1, {kick, disband}, "[tkp]Ann;[tdb];"}};
  tournament.ShowTournamentWindow();
  Sent();
  // A list that arrives while the question stands does not change whom it is about.
  message_box.meanwhile = [this] { tournament.ShowTeamList("Bob\002Bob\002Bob"); };
  for (const auto& [selected, boxes, sent] : cases) {
    for (const bool answer : {false, true}) {
      message_box.answers = {answer, answer};
      for (const auto click : {&Tournament::KickPlayerClicked, &Tournament::DisbandTeamClicked}) {
        tournament.ShowTeamList("Team\002  Ann \002   ");
        tournament.TeamSelected(selected);
        (tournament.*click)();
      }
      auto seen = std::exchange(message_box.shown, {});
      std::ranges::move(std::exchange(message_box.asked, {}), std::back_inserter(seen));
      EXPECT_EQ(seen, boxes);
      EXPECT_EQ(Sent(), answer ? sent : "");
    }
  }
}

TEST_F(TournamentTest, AdministratorsSendWhatTheyTypedAsLongAsTheSocketIsConnected) {
  tournament.Typed(&TournamentTexts::EntryFee, " 50");
  tournament.Typed(&TournamentTexts::MaxTeams, "four");
  tournament.Typed(&TournamentTexts::MaxPlayers, "3");
  tournament.Typed(&TournamentTexts::cmbTeam, "Team");
  tournament.Typed(&TournamentTexts::txtPassword, "secret");
  for (const bool connected : {false, true}) {
    socket.connected = connected;
    values.IsConnected = !connected;
    tournament.StartTournamentClicked();
    tournament.SetTournamentGameClicked();
    tournament.EndTournamentClicked();
    tournament.TabChosen(TournamentTab::Teams);
    tournament.CreateJoinClicked();
    EXPECT_EQ(Sent(), connected ? "[tcr] 50,four,3,;[tst];[ted];[ttm];[tjo]Team,secret,;" : "");
  }
}

}  // namespace
}  // namespace korvanta

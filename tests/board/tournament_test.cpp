#include "board/tournament.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TournamentTest : public testing::Test, protected fakes::LoggedInPlayer {
 protected:
  const TournamentState& state() const { return tournament.state(); }

  /// Opens the window anew; forgets what loading it sent.
  void Open() {
    tournament.window().Unload();
    tournament.ShowTournamentWindow();
    Sent();
  }
  void Type(std::string TournamentTexts::*box, std::string_view text) {
    tournament.Typed(box, text);
  }
  /// The message boxes and questions since the last call.
  std::vector<std::string> TakeBoxes() {
    auto boxes = std::exchange(message_box.shown, {});
    std::ranges::move(std::exchange(message_box.asked, {}), std::back_inserter(boxes));
    return boxes;
  }

  Tournament tournament{connection, values, message_box};
};

TEST_F(TournamentTest, LoadingSettlesTheAdminTabAndAsksForTheFigures) {
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

    Type(&TournamentTexts::EntryFee, "5");
    tournament.ShowTeamList("a");
    tournament.ShowTeamNames("a");
    tournament.TabChosen(TournamentTab::Teams);
    tournament.window().Unload();
    Sent();
  }
}

TEST_F(TournamentTest, InboundMessagesCreateTheWindowUnseen) {
  values.IsConnected = false;
  void (Tournament::*const handlers[])(std::string_view) = {
      &Tournament::ShowTournamentInfo, &Tournament::ShowTeamList, &Tournament::ShowTeamNames};
  for (const auto handler : handlers) {
    (tournament.*handler)("1\0012\0013\0014");
    EXPECT_EQ(tournament.window().state(), WindowLife::State::Hidden);
    EXPECT_EQ(Sent(), "[tif];");
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
        shown);
    EXPECT_EQ(changes, 1);
  }
}

TEST_F(TournamentTest, ListsSkipEmptyRecordsAndKeepTheirPositionsAsKeys) {
  Open();
  tournament.ShowTeamList("A\002\002 C \001x");
  EXPECT_THAT(state().lstTeams,
              ElementsAre(TeamListEntry{"S0", "A"}, TeamListEntry{"S2", " C \001x"}));
  tournament.TeamSelected(1);
  tournament.ShowTeamList("A\002B");
  EXPECT_EQ(state().selected_team, std::nullopt);
  tournament.ShowTeamList("");
  EXPECT_THAT(state().lstTeams, IsEmpty());

  Type(&TournamentTexts::cmbTeam, "typed");
  tournament.ShowTeamNames("B\001\001A\001A");
  EXPECT_THAT(state().team_names, ElementsAre("B", "A", "A"));
  tournament.ShowTeamNames("");
  EXPECT_THAT(state().team_names, IsEmpty());
  EXPECT_EQ(state().texts.cmbTeam, "typed");
  EXPECT_EQ(Sent(), "");
}

TEST_F(TournamentTest, ChoosingATabAsksForWhatItShowsEveryTime) {
  using enum TournamentTab;
  const struct {
    std::int16_t user_id;
    TournamentTab tab;
    const char* sent;
    TournamentTab chosen;
  } cases[] = {{90, Teams, "[ttm];[ttm];", Teams},
               {90, Admin, "", Admin},
               {90, Info, "[tif];[tif];", Info},
               {89, Admin, "", Info}};
  for (const auto& [user_id, tab, sent, chosen] : cases) {
    values.UserID = user_id;
    Open();
    tournament.TabChosen(tab);
    tournament.TabChosen(tab);
    EXPECT_EQ(Sent(), sent);
    EXPECT_EQ(state().chosen_tab, chosen);
  }
}

TEST_F(TournamentTest, CreateJoinWantsANameAndAPassword) {
  Open();
  const struct {
    const char *name, *password, *box, *sent, *password_after;
  } cases[] = {{"   ", "  ", "Korvanta: Please Enter a Team Name or Choose one!", "", "  "},
               {"Team", "  ", "Korvanta: Please Enter a Team Password!", "", "  "},
               {" Team ", " s ", nullptr, "[tjo] Team , s ,;", ""}};
  for (const auto& c : cases) {
    Type(&TournamentTexts::cmbTeam, c.name);
    Type(&TournamentTexts::txtPassword, c.password);
    tournament.CreateJoinClicked();
    EXPECT_EQ(TakeBoxes(), c.box ? std::vector<std::string>{c.box} : std::vector<std::string>());
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
  Open();
  for (const auto& [selected, boxes, sent] : cases) {
    for (const bool answer : {false, true}) {
      tournament.ShowTeamList("Team\002  Ann \002   ");
      tournament.TeamSelected(selected);
      message_box.answers = {answer, answer};
      // A list that arrives while the question stands does not change whom it is about.
      message_box.meanwhile = [this] { tournament.ShowTeamList("Bob\002Bob\002Bob"); };
      tournament.KickPlayerClicked();
      tournament.ShowTeamList("Team\002  Ann \002   ");
      tournament.TeamSelected(selected);
      tournament.DisbandTeamClicked();
      EXPECT_EQ(TakeBoxes(), boxes);
      EXPECT_EQ(Sent(), answer ? sent : "");
    }
  }
}

TEST_F(TournamentTest, AdministratorsSendWhatTheyTypedAsLongAsTheSocketIsConnected) {
  Open();
  Type(&TournamentTexts::EntryFee, " 50");
  Type(&TournamentTexts::MaxTeams, "four");
  Type(&TournamentTexts::MaxPlayers, "3");
  Type(&TournamentTexts::cmbTeam, "Team");
  Type(&TournamentTexts::txtPassword, "secret");
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

#include "board/board_actions.h"

#include <gmock/gmock.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BoardActionsTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  BoardActionsTest() {
    socket.connected = true;
    list.ShowOnlineList("Ann\0011\0011\0010\002Bob\0011\0011\0010");
  }

  OnlineList list;
  Statistics statistics{connection, values};
  BoardActions actions{connection, list, statistics, platform.message_box};
};

std::string Message(const std::string& text) { return text + '\0'; }

TEST_F(BoardActionsTest, BoxRequestsNameTheBoxLastRightClicked) {
  actions.ResearchThis();
  actions.BoxRightClicked(TopicCode::Industry, 3);
  actions.ResearchThis();
  actions.BoxRightClicked(TopicCode::GoldenKnowledge, 5);
  actions.ResearchThis();
  actions.BoxRightClicked(TopicCode::Defense, 2);
  actions.Information();
  EXPECT_THAT(socket.TakeSent(), ElementsAre(Message("[upg]0\0010\001"), Message("[upg]2\0013\001"),
                                             Message("[upg]5\0015\001"), Message("[inf]4")));
}

TEST_F(BoardActionsTest, ThePlayerMenuIsForTheSelectedEntryAndKeepsItsTarget) {
  EXPECT_FALSE(actions.PlayerRightClicked());
  list.Select(1);
  EXPECT_TRUE(actions.PlayerRightClicked());
  list.ShowOnlineList("Cid\0011\0011\0010");
  EXPECT_FALSE(actions.PlayerRightClicked());
  actions.AttackPlayer();
  EXPECT_THAT(socket.TakeSent(), ElementsAre(Message("[att]Bob")));
}

TEST_F(BoardActionsTest, StatisticsAsksForTheOwnRecordFirst) {
  values.CurrentUserName = "Me";
  values.IsConnected = true;
  actions.SelectedPlayer = "Bob";
  actions.ShowStatistics();
  EXPECT_EQ(statistics.window().state(), WindowLife::State::Shown);
  EXPECT_THAT(socket.TakeSent(), ElementsAre(Message("[bre]Me"), Message("[bre]Bob")));
  actions.ShowStatistics();
  EXPECT_THAT(socket.TakeSent(), ElementsAre(Message("[bre]Bob")));
}

TEST_F(BoardActionsTest, AnAllianceIsAskedForFirst) {
  actions.SelectedPlayer = "Bob";
  platform.message_box.answers = {false, true};
  actions.FormAlliance();
  EXPECT_THAT(socket.TakeSent(), IsEmpty());
  actions.FormAlliance();
  EXPECT_THAT(socket.TakeSent(), ElementsAre(Message("[aly]Bob")));
  EXPECT_THAT(platform.message_box.asked,
              ElementsAre("Alliance?: Are you sure you want to ally with this user?",
                          "Alliance?: Are you sure you want to ally with this user?"));
}

TEST_F(BoardActionsTest, WithoutAConnectedSocketNothingIsSent) {
  socket.connected = false;
  actions.BoxRightClicked(TopicCode::Military, 1);
  actions.SelectedPlayer = "Bob";
  platform.message_box.answers = {true};
  actions.ResearchThis();
  actions.Information();
  actions.AttackPlayer();
  actions.ShowStatistics();
  actions.EnterGame();
  actions.FormAlliance();
  EXPECT_THAT(socket.TakeSent(), IsEmpty());
  EXPECT_EQ(statistics.window().state(), WindowLife::State::Absent);
  socket.connected = true;
  actions.EnterGame();
  EXPECT_THAT(socket.TakeSent(), ElementsAre(Message("[jon]")));
}

}  // namespace
}  // namespace korvanta

#include "board/board_actions.h"

#include <gmock/gmock.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

class BoardActionsTest : public testing::Test, protected fakes::LoggedInPlayer {
 protected:
  BoardActionsTest() { list.ShowOnlineList("Ann\0011\0011\0010\002Bob\0011\0011\0010"); }

  OnlineList list;
  Statistics statistics{connection, values};
  BoardActions actions{connection, list, statistics, message_box};
};

TEST_F(BoardActionsTest, ThePlayerMenuIsForTheSelectedEntryAndKeepsItsTarget) {
  EXPECT_FALSE(actions.PlayerRightClicked());
  list.Select(1);
  EXPECT_TRUE(actions.PlayerRightClicked());
  list.ShowOnlineList("Cid\0011\0011\0010");
  EXPECT_FALSE(actions.PlayerRightClicked());
  actions.AttackPlayer();
  actions.ShowStatistics();  // the own record first, when the window opens
  actions.ShowStatistics();
  message_box.answers = {false, true};
  actions.FormAlliance();
  EXPECT_EQ(Sent(), "[att]Bob;[bre]Marlow;[bre]Bob;[bre]Bob;");
  EXPECT_EQ(statistics.window().state(), WindowLife::State::Shown);
  actions.FormAlliance();
  EXPECT_EQ(Sent(), "[aly]Bob;");
  EXPECT_EQ(message_box.asked.back(), "Alliance?: Are you sure you want to ally with this user?");
}

TEST_F(BoardActionsTest, TheConnectedSocketDecidesNotTheLogin) {
  for (const bool connected : {false, true}) {
    socket.connected = connected;
    values.IsConnected = !connected;
    message_box.answers = {true};
    actions.ResearchThis();
    actions.Information();
    actions.AttackPlayer();
    actions.EnterGame();
    actions.FormAlliance();
    actions.ShowStatistics();
    EXPECT_EQ(Sent(), connected ? "[upg]0,0,;[inf]0;[att];[jon];[aly];[bre];" : "");
    EXPECT_EQ(statistics.window().state() == WindowLife::State::Shown, connected);
  }
}

}  // namespace
}  // namespace korvanta

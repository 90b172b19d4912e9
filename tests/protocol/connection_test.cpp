#include "protocol/connection.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class ConnectionTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  ConnectionTest() {
    values.ClientVersion = "1.6";
    values.CurrentUserName = "name";
    values.CurrentPassword = "password";
  }

  void Ticks(int count) {
    for (int i = 0; i < count; ++i) {
      timers.Tick(1000ms);
    }
  }
  void LogIn() {
    connection.StartConnection();
    socket.Accept();
    connection.AcceptLogin("name\00112");
    chat.Take();
    display.Take();
    socket.TakeSent();
  }
};

TEST_F(ConnectionTest, AnAttemptClosesTheSocketAndConnectsToTheFixedPort) {
  connection.StartConnection();
  EXPECT_EQ(socket.closes, 1);
  EXPECT_THAT(socket.attempts, ElementsAre(Pair("127.0.0.1", 7678)));
  EXPECT_THAT(chat.Take(), ElementsAre("3|Connecting as name..."));
  EXPECT_THAT(display.Take(), IsEmpty());
  EXPECT_THAT(socket.sent, IsEmpty());
}

TEST_F(ConnectionTest, TheEighthTickGivesUpAndLeavesTitleAndMenu) {
  connection.StartConnection();
  chat.Take();
  Ticks(7);
  EXPECT_EQ(values.ConnectTicks, 7);
  EXPECT_THAT(chat.lines, IsEmpty());
  Ticks(1);
  EXPECT_THAT(chat.Take(), ElementsAre("3|No connection can be made", "3|Disconnected"));
  EXPECT_EQ(socket.closes, 2);
  EXPECT_EQ(values.ConnectTicks, 0);
  EXPECT_THAT(display.Take(), IsEmpty());
  Ticks(20);
  EXPECT_THAT(chat.lines, IsEmpty());
}

TEST_F(ConnectionTest, TheTitleChangesOneStepBeforeTheMenu) {
  connection.StartConnection();
  chat.Take();
  Ticks(7);
  socket.Accept();
  EXPECT_THAT(display.Take(), ElementsAre("title=Korvanta - v1.6 - Connected"));
  EXPECT_THAT(socket.TakeSent(), ElementsAre(std::string("[con]1.6\001name\001password\0", 23)));
  EXPECT_FALSE(values.IsConnected);
  EXPECT_EQ(values.ConnectTicks, 0);
  Ticks(20);
  EXPECT_THAT(chat.Take(), IsEmpty());

  connection.AcceptLogin("Name\001-12");
  EXPECT_THAT(display.Take(),
              ElementsAre("caption=Disconnect", "title=Korvanta - v1.6 - Connected"));
  EXPECT_TRUE(values.IsConnected);
  EXPECT_EQ(values.CurrentUserName, "Name");
  EXPECT_EQ(values.UserID, -12);
  EXPECT_THAT(chat.Take(), ElementsAre("3|Connected as Name"));
}

TEST_F(ConnectionTest, ABrokenAnswerKeepsTheNameButConnectsNobody) {
  connection.StartConnection();
  socket.Accept();
  chat.Take();
  display.Take();
  for (std::string_view payload : {"A\001x", "A", "A\00140000", "A\001"}) {
    values.CurrentUserName = "before";
    EXPECT_THROW(connection.AcceptLogin(payload), MessageError) << payload;
    EXPECT_EQ(values.CurrentUserName, "A") << payload;
  }
  EXPECT_THROW(connection.AcceptLogin(""), MessageError);
  EXPECT_FALSE(values.IsConnected);
  EXPECT_THAT(display.Take(), IsEmpty());
  EXPECT_THAT(chat.Take(), IsEmpty());
}

TEST_F(ConnectionTest, TheServerEndsTheConnectionNotTheClient) {
  LogIn();
  connection.Disconnect();
  EXPECT_THAT(socket.TakeSent(), ElementsAre(std::string("[dis]\0", 6)));
  EXPECT_TRUE(values.IsConnected);
  EXPECT_THAT(display.Take(), IsEmpty());

  socket.Hangup();
  EXPECT_THAT(chat.Take(), ElementsAre("3|Disconnected"));
  EXPECT_THAT(display.Take(),
              ElementsAre("caption=Connect", "title=Korvanta - v1.6 - Disconnected"));
  EXPECT_FALSE(values.IsConnected);
}

TEST_F(ConnectionTest, ASecondAttemptStartsCountingAgainAndLeavesTheTitleOfAHandshake) {
  for (const bool in_handshake : {false, true}) {
    connection.StartConnection();
    Ticks(5);
    if (in_handshake) {
      socket.Accept();
    }
    display.Take();
    socket.closes = 0;
    connection.StartConnection();
    EXPECT_EQ(values.ConnectTicks, 0);
    EXPECT_EQ(socket.closes, 1);
    chat.Take();
    Ticks(7);
    EXPECT_THAT(chat.lines, IsEmpty());
    Ticks(1);
    EXPECT_THAT(chat.Take(), ElementsAre("3|No connection can be made", "3|Disconnected"));
    EXPECT_THAT(display.Take(), IsEmpty()) << in_handshake;
  }
}

// The dialog opened during the handshake still stands when the server has answered.
TEST_F(ConnectionTest, ANewAttemptEndsTheLoginThatItReplaces) {
  LogIn();
  connection.StartConnection();
  EXPECT_FALSE(values.IsConnected);
  EXPECT_THAT(display.Take(),
              ElementsAre("caption=Connect", "title=Korvanta - v1.6 - Disconnected"));
  Ticks(8);
  EXPECT_FALSE(values.IsConnected) << "the user can try again";
}

TEST_F(ConnectionTest, AClosedEventShowsDisconnectedAndLeavesTheTimer) {
  connection.StartConnection();
  Ticks(3);
  chat.Take();
  socket.Hangup();
  EXPECT_THAT(chat.Take(), ElementsAre("3|Disconnected"));
  EXPECT_THAT(display.Take(),
              ElementsAre("caption=Connect", "title=Korvanta - v1.6 - Disconnected"));
  Ticks(4);
  EXPECT_THAT(chat.Take(), IsEmpty());
  Ticks(1);
  EXPECT_THAT(chat.Take(), ElementsAre("3|No connection can be made", "3|Disconnected"));
}

}  // namespace
}  // namespace korvanta

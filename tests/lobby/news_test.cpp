#include "lobby/news.h"

#include <gtest/gtest.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

struct NewsTest : testing::Test, fakes::LoggedInPlayer {
  News news{connection};
};

TEST_F(NewsTest, AsksOncePerCreationWhenLoggedInAndStartsEmpty) {
  for (const bool logged_in : {true, false}) {
    values.IsConnected = logged_in;
    news.window().Show();
    news.window().Show();
    EXPECT_EQ(Sent(), logged_in ? "[nws];" : "");
    EXPECT_EQ(news.rbNews(), "");
    news.ShowNews("old");
    news.window().Unload();
  }
}

TEST_F(NewsTest, AReplyCreatesTheWindowUnseenAndNotifiesOfChangesAlone) {
  int changes = 0;
  news.on_changed = [&] { ++changes; };
  news.ShowNews("one\r\ntwo\001three");
  EXPECT_EQ(news.window().state(), WindowLife::State::Hidden);
  EXPECT_EQ(Sent(), "[nws];");
  news.ShowNews("one\r\ntwo\001three");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(news.rbNews(), "one\r\ntwo\001three");
  news.ShowNews("");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(news.rbNews(), "");
}

}  // namespace
}  // namespace korvanta

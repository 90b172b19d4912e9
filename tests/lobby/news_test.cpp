#include "lobby/news.h"

#include <gtest/gtest.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

struct NewsTest : testing::Test, fakes::LoggedInPlayer {
  News news{connection};
};

TEST_F(NewsTest, AReplyCreatesTheWindowUnseenAndTheNextCreationStartsEmpty) {
  int changes = 0;
  news.on_changed = [&] { ++changes; };
  for (const char* text : {"one\r\ntwo\001three", "one\r\ntwo\001three", "", "old"}) {
    news.ShowNews(text);
    EXPECT_EQ(news.rbNews(), text);
  }
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(news.window().state(), WindowLife::State::Hidden);
  EXPECT_EQ(Sent(), "[nws];");
  news.window().Unload();
  values.IsConnected = false;
  news.window().Show();
  EXPECT_EQ(news.rbNews(), "");
  EXPECT_EQ(Sent(), "");
}

}  // namespace
}  // namespace korvanta

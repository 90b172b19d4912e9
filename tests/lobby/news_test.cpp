#include "lobby/news.h"

#include <gmock/gmock.h>

#include "protocol/message_catalogue.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(News, AsksOncePerCreationAndStartsEmpty) {
  fakes::LoggedInPlayer player;
  News news(player.connection);
  news.window().Show();
  news.window().Show();
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestNews()));
  news.ShowNews("old");
  news.window().Unload();
  news.window().Show();
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestNews()));
  EXPECT_EQ(news.rbNews(), "");

  news.window().Unload();
  player.OnlyHandshake();
  news.window().Show();
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

TEST(News, AReplyReplacesTheTextAndTellsOnlyOfChanges) {
  fakes::LoggedInPlayer player;
  News news(player.connection);
  int changes = 0;
  news.on_changed = [&] { ++changes; };
  news.ShowNews("one\r\ntwo\001three");
  EXPECT_EQ(news.window().state(), WindowLife::State::Hidden);
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::RequestNews()));
  EXPECT_EQ(news.rbNews(), "one\r\ntwo\001three");
  news.ShowNews("one\r\ntwo\001three");
  EXPECT_EQ(changes, 1);

  news.window().Show();
  EXPECT_EQ(news.rbNews(), "one\r\ntwo\001three");
  news.ShowNews("");
  EXPECT_EQ(news.rbNews(), "");
  EXPECT_EQ(changes, 2);
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

}  // namespace
}  // namespace korvanta

/// The players online and their menu.
#include "lobby/online_list.h"

#include <gmock/gmock.h>

#include "board/board_actions.h"
#include "protocol/field_reading.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

/// Entries as "name r,g,b level mark".
std::vector<std::string> Shown(const OnlineList& list) {
  std::vector<std::string> lines;
  for (const OnlineList::Entry& entry : list.entries()) {
    lines.push_back(std::string(entry.name) + " " + std::to_string(entry.colour.red) + "," +
                    std::to_string(entry.colour.green) + "," + std::to_string(entry.colour.blue) +
                    " " + std::string(entry.level) + (entry.marked ? " *" : ""));
  }
  return lines;
}

TEST(OnlineList, ShowsEveryRecordUpToABrokenOneAndSkipsEmptyOnes) {
  const std::string ann = "Ann\0014\00112\0011";
  const struct {
    std::string payload;
    bool broken;
    std::vector<std::string> shown;
  } cases[] = {
      {ann + "\002\002Bob\0019\001any text\0010\002C\0017\001\0011.0",
       false,
       {"Ann 0,192,0 12 *", "Bob 0,0,0 any text", "C 192,0,0  *"}},
      {"", false, {}},
      {"Bob\002" + ann, true, {"Bob 0,0,0 "}},
      {ann + "\002Bob\001x\0015\0011\002" + ann, true, {"Ann 0,192,0 12 *", "Bob 0,0,0 "}},
      {"Bob\0017\002" + ann, true, {"Bob 192,0,0 "}},
      {"Bob\0017\0015\001\002" + ann, true, {"Bob 192,0,0 5"}},
  };
  for (const auto& [payload, broken, shown] : cases) {
    OnlineList list;
    list.ShowOnlineList(ann);
    list.Select(0);
    int changes = 0;
    list.on_changed = [&] { ++changes; };
    if (broken) {
      EXPECT_THROW(list.ShowOnlineList(payload), MessageError) << payload;
    } else {
      list.ShowOnlineList(payload);
    }
    EXPECT_EQ(Shown(list), shown) << payload;
    EXPECT_FALSE(list.selected());
    EXPECT_EQ(changes, 1);
  }
}

TEST(OnlineColour, FollowsTheCategoryAsANumber) {
  const std::pair<std::string_view, Colour> cases[] = {
      {"1", {192, 192, 0}},    {"2", {128, 128, 128}}, {"3", {192, 0, 192}}, {"4", {0, 192, 0}},
      {"5", {0, 0, 192}},      {"6", {0, 192, 192}},   {"7", {192, 0, 0}},   {"8", {192, 64, 0}},
      {" 8.0 ", {192, 64, 0}}, {"9", kBlack},          {"0", kBlack},        {"-1", kBlack},
      {"1.5", kBlack},
  };
  for (const auto& [category, colour] : cases) {
    EXPECT_EQ(OnlineColour(category), colour) << category;
  }
}

struct BoardActionsTest : testing::Test, fakes::LoggedInPlayer {
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

}  // namespace
}  // namespace korvanta

#include "lobby/statistics.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

struct StatisticsTest : testing::Test, fakes::LoggedInPlayer {
  const StatisticsState& state() const { return statistics.state(); }

  /// A reply for Ann with the fields f1 to f11.
  static std::string Reply(const std::string& award_codes) {
    std::string reply = "Ann";
    for (int field = 1; field <= 11; ++field) {
      reply += "\001f" + std::to_string(field);
    }
    return reply + "\001" + award_codes;
  }

  Statistics statistics{connection, values};
};

TEST_F(StatisticsTest, SearchSendsTheNameAsTypedWhenThereIsOne) {
  const std::tuple<const char*, bool, const char*> cases[] = {
      {"   ", true, ""}, {"  Ann ", true, "[bre]  Ann ;"}, {"Ann", false, ""}};
  for (const auto& [typed, logged_in, sent] : cases) {
    values.IsConnected = logged_in;
    statistics.UserInputTyped(typed);
    statistics.SearchClicked();
    EXPECT_EQ(Sent(), sent) << typed;
  }
}

TEST_F(StatisticsTest, AReplyFillsTheFieldsThatItHas) {
  EXPECT_THROW(statistics.ShowUserStatistics(""), MessageError);
  EXPECT_EQ(statistics.window().state(), WindowLife::State::Absent);
  statistics.ShowUserStatistics(Reply("24") + "\001a further field");
  EXPECT_EQ(state().frmUserData + state().frmAward, "Statistics for 'Ann'Awards for 'Ann'");
  EXPECT_THAT(state().fields,
              ElementsAre("f9", "f1", "f2", "f3", "f11", "f4", "f5", "f6", "f7", "f10", "f8"));
  EXPECT_THAT(state().lstAwards, ElementsAre("No awards for this user!"));

  int changes = 0;
  statistics.on_changed = [&] { ++changes; };
  EXPECT_THROW(statistics.ShowUserStatistics("Bob\001g1\001g2"), MessageError);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(state().frmAward, "Awards for 'Bob'");
  EXPECT_THAT(state().fields,
              ElementsAre("f9", "g1", "g2", "f3", "f11", "f4", "f5", "f6", "f7", "f10", "f8"));
  EXPECT_EQ(state().lstAwards.size(), 1U);
}

TEST_F(StatisticsTest, AwardCodesAreReadLenientlyThenComparedStrictly) {
  const std::string_view winner = "Winner Award - 1 Win";
  const std::string_view barrier = "Barrier Award - 25 Blocks";
  const struct {
    const char* codes;
    std::vector<std::string_view> lines;
    bool broken = false;
  } cases[] = {
      {"1\0026\0027\00211\00220\00223",
       {"Gold Award - 1,000,000 Total Score", "Red Award - 10,000 Total Score",
        "Overlord Ace Award - 1,000 Wins", winner, barrier, "Obstacle Award - 50 Blocks"}},
      {" 11 \0022.0e1\00211.0", {winner, barrier, winner}},
      {"11\0020\002-11\002\002word\0020x5\002nan\00220", {winner, barrier}},
      {"25\0021.5\0020.5\00211\00299999999999\0021e999", {winner}},
      {"11\00220th\00211", {winner}, true},
      {"11\0021 1\00211", {winner}, true},
      {"", {}},
  };
  for (const auto& [codes, lines, broken] : cases) {
    if (broken) {
      EXPECT_THROW(statistics.ShowUserStatistics(Reply(codes)), MessageError) << codes;
    } else {
      statistics.ShowUserStatistics(Reply(codes));
    }
    EXPECT_EQ(state().lstAwards, lines) << codes;
  }
}

}  // namespace
}  // namespace korvanta

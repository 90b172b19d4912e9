#include "lobby/statistics.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StatisticsTest : public testing::Test {
 protected:
  const StatisticsState& state() const { return statistics.state(); }

  /// "control=text" of each field, from top to bottom.
  std::vector<std::string> Fields() const {
    std::vector<std::string> fields;
    for (std::size_t i = 0; i < kStatisticsFields.size(); ++i) {
      fields.push_back(std::string(kStatisticsFields[i].control) + "=" + state().fields[i]);
    }
    return fields;
  }
  /// A reply for Ann with the fields f1 to f11.
  static std::string Reply(const std::string& award_codes) {
    std::string reply = "Ann";
    for (int field = 1; field <= 11; ++field) {
      reply += "\001f" + std::to_string(field);
    }
    return reply + "\001" + award_codes;
  }

  fakes::LoggedInPlayer player;
  Statistics statistics{player.connection, player.values};
};

TEST_F(StatisticsTest, LoadingAsksForTheOwnRecordOncePerCreationWhenLoggedIn) {
  statistics.window().Show();
  statistics.window().Show();
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::LookUpStatistics("Marlow")));
  EXPECT_EQ(state(), StatisticsState());
  EXPECT_EQ(state().frmUserData, "Statistics for 'none'");
  EXPECT_EQ(state().frmAward, "Awards for 'none'");

  statistics.UserInputTyped("Ann");
  statistics.ShowUserStatistics(Reply("1"));
  statistics.window().Unload();
  statistics.window().Show();
  EXPECT_EQ(state(), StatisticsState());
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::LookUpStatistics("Marlow")));

  statistics.window().Unload();
  player.OnlyHandshake();
  statistics.window().Show();
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

TEST_F(StatisticsTest, SearchSendsTheNameAsTypedWhenThereIsOne) {
  for (const auto& [typed, sent] :
       {std::pair{"", false}, {"   ", false}, {"  Ann ", true}, {"\t", true}}) {
    statistics.UserInputTyped(typed);
    statistics.SearchClicked();
    EXPECT_EQ(player.TakeSent(),
              sent ? std::vector{outbound::LookUpStatistics(typed)} : std::vector<std::string>());
  }
  player.OnlyHandshake();
  statistics.UserInputTyped("Ann");
  statistics.SearchClicked();
  EXPECT_THAT(player.TakeSent(), IsEmpty());
}

TEST_F(StatisticsTest, AReplyFillsEveryFieldAndReplacesTheAwards) {
  statistics.window().Show();
  statistics.ShowUserStatistics(Reply("5\00221\0021"));
  EXPECT_EQ(state().frmUserData, "Statistics for 'Ann'");
  EXPECT_EQ(state().frmAward, "Awards for 'Ann'");
  EXPECT_THAT(Fields(), ElementsAre("rbScore=f9", "txtAlliance=f1", "txtID=f2", "txtWins=f3",
                                    "txtAllianceWins=f11", "txtPlayed=f4", "txtResearch=f5",
                                    "txtLost=f6", "txtDestroy=f7", "txtBlocks=f10", "txtScrew=f8"));
  EXPECT_THAT(state().lstAwards,
              ElementsAre("Blue Award - 50,000 Total Score", "Orange Award - 1,000 Total Score",
                          "Gold Award - 1,000,000 Total Score"));
  statistics.ShowUserStatistics(Reply("") + "\001a further field");
  EXPECT_THAT(state().lstAwards, IsEmpty());
}

TEST_F(StatisticsTest, AwardCodesAreNumbersInAnyPlainForm) {
  const std::string codes = "5.0\0020x5\002nan\002 21 \0020.5\0021e999\002-1\0021e0";
  statistics.ShowUserStatistics(Reply(codes));
  EXPECT_THAT(state().lstAwards,
              ElementsAre("Blue Award - 50,000 Total Score", "Orange Award - 1,000 Total Score",
                          "Gold Award - 1,000,000 Total Score"));
}

TEST_F(StatisticsTest, AReplyCreatesTheWindowUnseenAndAsksForTheOwnRecord) {
  statistics.ShowUserStatistics(Reply("24"));
  EXPECT_EQ(statistics.window().state(), WindowLife::State::Hidden);
  EXPECT_THAT(player.TakeSent(), ElementsAre(outbound::LookUpStatistics("Marlow")));
  EXPECT_THAT(state().lstAwards, ElementsAre("No awards for this user!"));
  statistics.window().Show();
  EXPECT_THAT(player.TakeSent(), IsEmpty());
  EXPECT_EQ(state().frmUserData, "Statistics for 'Ann'");
}

TEST_F(StatisticsTest, EveryAwardCodeHasItsLine) {
  const std::vector<std::string_view> lines = {
      "Gold Award - 1,000,000 Total Score",
      "Silver Award - 500,000 Total Score",
      "Purple Award - 250,000 Total Score",
      "Green Award - 100,000 Total Score",
      "Blue Award - 50,000 Total Score",
      "Red Award - 10,000 Total Score",
      "Overlord Ace Award - 1,000 Wins",
      "Master Ace Award - 500 Wins",
      "Pro Ace Award - 100 Wins",
      "Ace Award - 10 Wins",
      "Winner Award - 1 Win",
      "Devastation Award - 5,000 Research Destroyed",
      "Carnage Award - 1,000 Research Destroyed",
      "Massacre Award - 250 Research Destroyed",
      "Ruin Award - 100 Research Destroyed",
      "Wreckage Award - 50 Research Destroyed",
      "Fortification Award - 1,000 Blocks",
      "Restraint Award - 500 Blocks",
      "Blockade Award - 100 Blocks",
      "Barrier Award - 25 Blocks",
      "Orange Award - 1,000 Total Score",
      "Light Blue Award - 25,000 Total Score",
      "Obstacle Award - 50 Blocks",
      "No awards for this user!",
  };
  StatisticsState awarded;
  for (std::size_t code = 1; code <= lines.size() + 1; ++code) {
    modData::AddAward(awarded, std::to_string(code));
  }
  EXPECT_EQ(awarded.lstAwards, lines);
}

TEST_F(StatisticsTest, AwardCodesAreReadLenientlyThenComparedStrictly) {
  struct Case {
    const char* codes;
    std::vector<std::string_view> lines;
    bool broken = false;
  };
  const std::string_view winner = "Winner Award - 1 Win";
  const std::string_view barrier = "Barrier Award - 25 Blocks";
  const Case cases[] = {
      {"11\0020\00220", {winner, barrier}}, {"11\002-11\002\002word\00220", {winner, barrier}},
      {" 11 \0022.0e1", {winner, barrier}}, {"25\0021.5\00211\00299999999999", {winner}},
      {"11\00220th\00211", {winner}, true}, {"11\0021 1\00211", {winner}, true},
      {"11\00211", {winner, winner}},
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

TEST_F(StatisticsTest, AShortReplyFillsWhatItHasAndTellsOnce) {
  EXPECT_THROW(statistics.ShowUserStatistics(""), MessageError);
  EXPECT_EQ(statistics.window().state(), WindowLife::State::Absent);
  EXPECT_THAT(player.TakeSent(), testing::IsEmpty());
  statistics.window().Show();
  statistics.ShowUserStatistics(Reply("1"));
  int changes = 0;
  statistics.on_changed = [&] { ++changes; };

  EXPECT_THROW(statistics.ShowUserStatistics(""), MessageError);
  EXPECT_EQ(state().frmUserData, "Statistics for 'Ann'");
  statistics.ShowUserStatistics(Reply("1"));
  EXPECT_EQ(changes, 0);

  EXPECT_THROW(statistics.ShowUserStatistics("Bob\001g1\001g2\001g3\001g4\001g5\001g6\001g7"),
               MessageError);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(state().frmAward, "Awards for 'Bob'");
  EXPECT_THAT(Fields(), testing::IsSupersetOf({"txtDestroy=g7", "txtScrew=f8"}));
  EXPECT_EQ(state().lstAwards.size(), 1U);
}

}  // namespace
}  // namespace korvanta

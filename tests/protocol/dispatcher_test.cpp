/// The table of messages, and what the client does with each that it receives.
#include "protocol/dispatcher.h"

#include <fstream>
#include <gmock/gmock.h>
#include <tuple>

#include "protocol/message_catalogue.h"
#include "protocol/message_table.h"
#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

/// The tests of what sends the other messages hold their forms.
TEST(Catalogue, NothingIsEscaped) {
  EXPECT_EQ(outbound::ChatLine(std::string("a\0b\001c\002\xff", 7)),
            std::string("[ctc]a\0b\001c\002\xff\0", 13));
  EXPECT_EQ(outbound::KeepAlive(), std::string("[p]\0", 4));
}

/// Letters of the field roles, in their order.
std::string Letters(const FieldRoles& roles) {
  std::string letters;
  for (std::size_t i = 0; i < roles.size(); ++i) {
    letters += "tnibcl"[static_cast<std::size_t>(roles[i])];
  }
  return letters;
}

TEST(MessageTable, HasTheServersMessagesInTestOrder) {
  using enum Layout;
  const std::tuple<std::string_view, std::string_view, Layout> messages[] = {
      {"[con]", "ti", Fields},   {"[log]", "t", Fields},  {"[cap]", "t", Fields},
      {"[tim]", "i", Fields},    {"[sou]", "n", Fields},  {"[bre]", "ttnnnnnnnnnnl", Fields},
      {"[end]", "i", Fields},    {"[upg]", "ii", Fields}, {"[clr]", "", Ignored},
      {"[clt]", "", Ignored},    {"[poi]", "n", Fields},  {"[att]", "ii", Fields},
      {"[msg]", "ctb", Fields},  {"[nws]", "t", Fields},  {"[onl]", "tnnn", Records},
      {"[tif]", "nnnt", Fields}, {"[ttm]", "t", Records}, {"[tdd]", "t", Repeated},
  };
  ASSERT_EQ(std::size(messages), kServerMessages.size());
  for (std::size_t i = 0; i < kServerMessages.size(); ++i) {
    const auto& row = kServerMessages[i];
    EXPECT_EQ(std::tuple(row.tag, Letters(row.fields), row.layout), messages[i]) << i;
  }
}

using testing::ElementsAre;

struct StarFilter : ChatFilter {
  std::string_view FilterLanguage(std::string_view text, std::string& masked) const override {
    return masked = "*" + std::string(text);
  }
};

/// "clock seconds", "light topic level", …; for a message that is handed on "tag payload".
struct RecordingThings : ClockReceiver,
                         BoardReceiver,
                         OnlineListReceiver,
                         StatisticsReceiver,
                         NewsReceiver,
                         TournamentReceiver {
  void StartGameClock(std::int16_t seconds) override { Record("clock", std::to_string(seconds)); }
  void ShowTopicLevel(TopicCode topic, std::int16_t level) override {
    Record("light", std::to_string(static_cast<int>(topic)) + " " + std::to_string(level));
  }
  void ShowClearedBoard() override { Record("reset", "board"); }
  void ShowResearchPoints(double points) override { Record("points", std::to_string(points)); }
  void ShowOnlineList(std::string_view payload) override { Record("onl", payload); }
  void ShowUserStatistics(std::string_view payload) override { Record("bre", payload); }
  void ShowNews(std::string_view payload) override { Record("nws", payload); }
  void ShowTournamentInfo(std::string_view payload) override { Record("tif", payload); }
  void ShowTeamList(std::string_view payload) override { Record("ttm", payload); }
  void ShowTeamNames(std::string_view payload) override { Record("tdd", payload); }
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  void Record(const std::string& what, std::string_view payload) {
    calls.push_back(what + " " + std::string(payload));
  }

  std::vector<std::string> calls;
};

struct DispatcherTest : testing::Test, fakes::OfflinePlayer {
  DispatcherTest() { options.mnuFilter = false; }

  /// Each text becomes one terminated message of the same block.
  void Receive(std::initializer_list<std::string> messages) {
    std::string block;
    for (const std::string& message : messages) {
      block += message + '\0';
    }
    dispatcher.HandleBlock(block);
  }

  RecordingThings things;
  StarFilter filter;
  Options options;
  Dispatcher dispatcher{{connection, options, chat, filter, platform.sounds, things, things, things,
                         things, things, things}};
};

TEST_F(DispatcherTest, EveryTagReachesItsHandlerWithItsPayload) {
  Receive({"[con]Ann\00112", "[log]Bob logged in", "[cap]whatever", "[tim]90abc", "[sou]3",
           "[bre]b", "[end]", "[upg]2x\0013abc", "[clr]x", "[clt]", "[poi]2.5", "[att]4\0011",
           "[msg]cht\001Ann: hi\001True", "[nws]n\r\nm", "[onl]o", "[tif]i", "[ttm]t", "[tdd]d"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|Connected as Ann", "3|Bob logged in", "0|Ann: hi"));
  EXPECT_THAT(things.Take(), ElementsAre("clock 90", "bre b", "clock 0", "light 2 3", "reset board",
                                         "reset board", "points 2.500000", "light 4 1",
                                         "nws n\r\nm", "onl o", "tif i", "ttm t", "tdd d"));
  EXPECT_THAT(platform.sounds.played, ElementsAre("sounds/attack.wav"));
  EXPECT_EQ(values.UserID, 12);
}

TEST_F(DispatcherTest, AnErrorDropsTheRestOfTheBlockAndNothingElse) {
  for (const std::string broken :
       {"[con]", "[con]Ann", "[con]Ann\001", "[con]Ann\001x", "[con]Ann\00140000", "[upg]1",
        "[att]", "[tim]32768", "[upg]1\00140000", "[msg]cht\001x", "[msg]cht\001x\001maybe",
        "[sou]x", "[sou]"}) {
    Receive({"[log]before", broken, "[log]after"});
    Receive({"[log]next"});
    EXPECT_THAT(chat.Take(), ElementsAre("3|before", "3|next")) << broken;
  }
  EXPECT_EQ(values.CurrentUserName, "Ann") << "what was done stays done";
  EXPECT_FALSE(values.IsConnected);
  EXPECT_TRUE(display.calls.empty());
}

TEST_F(DispatcherTest, PiecesAreTestedForEveryTagInOrderOnWhatTheLastHandlerLeft) {
  using Texts = std::vector<std::string>;
  const struct {
    std::string block;  // a bar stands for a terminator
    Texts lines;
    Texts calls;
  } cases[] = {
      {"[log]a|[xyz]b||[lo|[LOG]c|log|[p]|[log]d|", {"3|a", "3|d"}, {}},
      {"[poi]5|[poi]6", {}, {"points 5.000000", "points 6.000000"}},
      {"[lo", {}, {}},
      {"g]nothing is kept for the next block|", {}, {}},
      {"[log][tim][poi]7|", {"3|[tim][poi]7"}, {"clock 0", "points 7.000000"}},
      {"[poi][log]earlier tags are past|", {}, {"points 0.000000"}},
      {"[clr][poi]the tag is left|", {}, {"reset board"}},
      {"[log][log]once|", {"3|[log]once"}, {}},
  };
  for (auto [block, lines, calls] : cases) {
    std::ranges::replace(block, '|', '\0');
    dispatcher.HandleBlock(block);
    EXPECT_EQ(chat.Take(), lines) << block;
    EXPECT_EQ(things.Take(), calls) << block;
  }
}

TEST_F(DispatcherTest, KindCodesAndSoundNumbersAreExact) {
  Receive({"[msg]cht\001a\0010", "[msg]ann\001b\0010", "[msg]adm\001c\0010", "[msg]blk\001d\0010",
           "[msg]tel\001e\0010", "[msg]tem\001f\0010", "[msg]pln\001g\0010", "[msg]CHT\001h\0010",
           "[msg]\001i\0010", "[msg]cht \001j\0010"});
  EXPECT_THAT(chat.Take(), ElementsAre("0|a", "1|b", "2|c", "3|d", "4|e", "5|f", "6|g"));
  Receive({"[sou]1", "[sou]2.0", "[sou] 4 ", "[sou]5", "[sou]6", "[sou]0", "[sou]7", "[sou]1.5"});
  EXPECT_THAT(platform.sounds.played,
              ElementsAre("sounds/gamestart.wav", "sounds/tick.wav", "sounds/attacked.wav",
                          "sounds/research.wav", "sounds/wingame.wav"));
  Receive({"[sou]3"});
  for (const std::string& name : platform.sounds.played) {
    std::ifstream file(KORVANTA_ASSETS "/" + name, std::ios::binary);
    std::string header(22, ' ');
    file.read(header.data(), 22);
    EXPECT_EQ(header.substr(0, 4) + header.substr(8, 8), "RIFFWAVEfmt ") << name;
    EXPECT_EQ(header.substr(20), std::string("\1\0", 2)) << name << " is no PCM";
  }
}

TEST_F(DispatcherTest, OptionsDecideOnNoticesSoundsTheFilterAndJoining) {
  options.mnuLogins = options.mnuFilter = options.mAuto = true;
  options.mSounds = false;
  Receive({"[log]hidden", "[sou]not even read", "[msg]tel\001text\001False", "[clr]"});
  socket.connected = true;
  Receive({"[clr]", "[clt]"});
  options.mnuLogins = options.mAuto = false;
  Receive({"[log]never filtered", "[clr]"});
  EXPECT_THAT(chat.Take(), ElementsAre("4|*text", "3|never filtered"));
  EXPECT_TRUE(platform.sounds.played.empty());
  EXPECT_EQ(Sent(), "[jon];[jon];");
}

}  // namespace
}  // namespace korvanta

#include "protocol/dispatcher.h"

#include <gmock/gmock.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StarFilter : public ChatFilter {
 public:
  std::string_view FilterLanguage(std::string_view text, std::string& masked) const override {
    return masked = "*" + std::string(text);
  }
};

class DispatcherTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  DispatcherTest() {
    values.CurrentUserName = "old";
    options.mnuFilter = false;
  }

  /// Each text becomes one terminated message of the same block.
  void Receive(std::initializer_list<std::string> messages) {
    std::string block;
    for (const std::string& message : messages) {
      block += message;
      block += '\0';
    }
    dispatcher.HandleBlock(block);
  }

  fakes::RecordingThings things;
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
  EXPECT_TRUE(values.IsConnected);
}

TEST_F(DispatcherTest, AnErrorDropsTheRestOfTheBlockAndKeepsWhatWasDone) {
  Receive({"[log]one", "[con]Ann\001x", "[log]two"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|one"));
  EXPECT_EQ(values.CurrentUserName, "Ann");
  EXPECT_FALSE(values.IsConnected);
  Receive({"[log]three"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|three"));

  for (const std::string& broken :
       {std::string("[upg]1"), std::string("[att]"), std::string("[tim]32768"),
        std::string("[poi]"), std::string("[upg]1\00140000"), std::string("[msg]cht\001x"),
        std::string("[msg]cht\001x\001maybe"), std::string("[sou]x"), std::string("[sou]")}) {
    Receive({broken, "[log]after"});
    const bool dropped = chat.Take().empty();
    EXPECT_EQ(dropped, broken != "[poi]") << broken;
  }
}

TEST_F(DispatcherTest, UnknownPiecesAreSkipped) {
  Receive({"[log]a", "[xyz]b", "", "[lo", "[LOG]c", "log", "[p]", "[log]d"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|a", "3|d"));
}

TEST_F(DispatcherTest, TheLastPieceNeedsNoTerminatorAndNothingIsKeptForLater) {
  dispatcher.HandleBlock(std::string("[poi]5\0[poi]6", 13));
  EXPECT_THAT(things.Take(), ElementsAre("points 5.000000", "points 6.000000"));
  dispatcher.HandleBlock("[lo");
  dispatcher.HandleBlock("g]tail");
  dispatcher.HandleBlock("");
  EXPECT_THAT(chat.Take(), IsEmpty());
}

TEST_F(DispatcherTest, TestsGoOnOnWhatTheHandlerLeft) {
  Receive({"[log][tim][poi]7"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|[tim][poi]7"));
  EXPECT_THAT(things.Take(), ElementsAre("clock 0", "points 7.000000"));
  Receive({"[poi][log]earlier tags are past", "[clr][log]x", "[log][log]once"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|[log]once"));
  EXPECT_THAT(things.Take(), ElementsAre("points 0.000000", "reset board"));
}

TEST_F(DispatcherTest, KindCodesAreExact) {
  Receive({"[msg]cht\001a\0010", "[msg]ann\001b\0010", "[msg]adm\001c\0010", "[msg]blk\001d\0010",
           "[msg]tel\001e\0010", "[msg]tem\001f\0010", "[msg]pln\001g\0010", "[msg]CHT\001h\0010",
           "[msg]\001i\0010", "[msg]cht \001j\0010"});
  EXPECT_THAT(chat.Take(), ElementsAre("0|a", "1|b", "2|c", "3|d", "4|e", "5|f", "6|g"));
}

TEST_F(DispatcherTest, OptionsDecideOnNoticesSoundsAndTheFilter) {
  options.mnuLogins = true;
  options.mSounds = false;
  options.mnuFilter = true;
  Receive({"[log]hidden", "[sou]not even read", "[msg]tel\001text\001False"});
  EXPECT_THAT(chat.Take(), ElementsAre("4|*text"));
  EXPECT_THAT(platform.sounds.played, IsEmpty());
  options.mnuLogins = false;
  Receive({"[log]never filtered"});
  EXPECT_THAT(chat.Take(), ElementsAre("3|never filtered"));
}

TEST_F(DispatcherTest, SoundNumbersNameTheirFiles) {
  Receive({"[sou]1", "[sou]2.0", "[sou] 4 ", "[sou]5", "[sou]6", "[sou]0", "[sou]7", "[sou]1.5"});
  EXPECT_THAT(platform.sounds.played,
              ElementsAre("sounds/gamestart.wav", "sounds/tick.wav", "sounds/attacked.wav",
                          "sounds/research.wav", "sounds/wingame.wav"));
}

TEST_F(DispatcherTest, AutoReadyJoinsOnceForEachClearedBoardWhileTheSocketIsConnected) {
  Receive({"[clr]"});
  options.mAuto = true;
  Receive({"[clr]"});
  EXPECT_THAT(socket.TakeSent(), IsEmpty());
  socket.connected = true;
  Receive({"[clr]", "[clt]"});
  const std::string join("[jon]\0", 6);
  EXPECT_THAT(socket.TakeSent(), ElementsAre(join, join));
}

}  // namespace
}  // namespace korvanta

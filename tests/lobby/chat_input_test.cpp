#include "lobby/chat_input.h"

#include <gtest/gtest.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

class ChatInputTest : public testing::Test, protected fakes::LoggedInPlayer {
 protected:
  /// Types and sends; returns what left.
  std::string Send(std::string_view typed) {
    input.TextEdited(typed);
    input.SendChatLine();
    return Sent();
  }

  Options options;
  ChatInput input{connection, options};
};

TEST_F(ChatInputTest, AutoChatTurnsTextIntoTheChatCommand) {
  const struct {
    std::string typed, with_auto_chat, without;
  } cases[] = {
      {"  hello  ", "c hello", "hello"}, {"//who", "/who", "//who"}, {"/", "", "/"},
      {" /who", "who", "/who"},          {"/ who", " who", "/ who"}, {"   ", "c ", ""},
      {"\thi", "c \thi", "\thi"},
  };
  for (const auto& c : cases) {
    for (const bool on : {true, false}) {
      options.mnuAutoChat = on;
      const std::string& sent = on ? c.with_auto_chat : c.without;
      EXPECT_EQ(Send(c.typed), "[ctc]" + sent + ";") << c.typed;
      EXPECT_EQ(input.history().back(), sent);
      EXPECT_EQ(input.text(), "");
    }
  }
}

TEST_F(ChatInputTest, NothingHappensWhenEmptyOrNotLoggedIn) {
  EXPECT_EQ(Send(""), "");
  values.IsConnected = false;
  EXPECT_EQ(Send(" kept "), "");
  EXPECT_EQ(input.text(), " kept ");
  EXPECT_TRUE(input.history().empty());
}

TEST_F(ChatInputTest, TheLimitCountsTheTextAsTyped) {
  const std::string limit(250, 'x');
  EXPECT_EQ(Send(std::string(251, ' ')), "");
  EXPECT_FALSE(input.IsSendEnabled());
  EXPECT_EQ(input.Remaining(), -1);
  input.TextEdited(limit);
  EXPECT_TRUE(input.IsSendEnabled());
  EXPECT_EQ(input.Remaining(), 0);
  EXPECT_EQ(Send(limit), "[ctc]c " + limit + ";");
}

TEST_F(ChatInputTest, UpAndDownRecallLinesAsTypedAndKeepTheDraft) {
  for (const char* line : {"one", " /two", " /two"}) {
    Send(line);
  }
  input.TextEdited("draft");
  const auto walk = [this](std::string_view keys) {
    for (const char key : keys) {
      key == 'u' ? input.HistoryUp() : input.HistoryDown();
    }
    return input.text();
  };
  EXPECT_EQ(walk("uu"), " /two");
  EXPECT_EQ(walk("uu"), "one");
  EXPECT_EQ(walk("d"), " /two");
  EXPECT_EQ(walk("ddd"), "draft");
  walk("uuu");
  input.TextEdited("one more");  // the new draft
  EXPECT_EQ(walk("u"), " /two");
  EXPECT_EQ(walk("d"), "one more");
}

TEST_F(ChatInputTest, AChosenLineGoesThroughTheRewriteAgain) {
  Send("word");
  input.HistoryChosen(0);
  EXPECT_EQ(input.text(), "c word");
  input.HistoryChosen(7);
  EXPECT_EQ(Send("c word"), "[ctc]c c word;");
}

}  // namespace
}  // namespace korvanta

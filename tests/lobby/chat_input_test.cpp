#include "lobby/chat_input.h"

#include <gmock/gmock.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ChatInputTest : public testing::Test, protected fakes::OfflinePlayer {
 protected:
  ChatInputTest() { values.IsConnected = true; }

  /// Types and sends; returns the payload that left, or "-" when nothing did.
  std::string Send(std::string_view typed) {
    input.TextEdited(typed);
    input.SendChatLine();
    const auto sent = socket.TakeSent();
    if (sent.empty()) {
      return "-";
    }
    EXPECT_EQ(sent.size(), 1U);
    EXPECT_EQ(sent[0].substr(0, 5), "[ctc]");
    EXPECT_EQ(sent[0].back(), '\0');
    return sent[0].substr(5, sent[0].size() - 6);
  }

  Options options;
  ChatInput input{connection, options};
};

TEST_F(ChatInputTest, AutoChatTurnsTextIntoTheChatCommand) {
  const struct {
    std::string_view typed, with_auto_chat, without;
  } cases[] = {
      {"hello", "c hello", "hello"},
      {"  hello  ", "c hello", "hello"},
      {"/who", "who", "/who"},
      {" /who", "who", "/who"},
      {"//who", "/who", "//who"},
      {"/", "", "/"},
      {"   ", "c ", ""},
      {"\thi", "c \thi", "\thi"},
      {"/ who", " who", "/ who"},
  };
  for (const auto& c : cases) {
    for (const bool on : {true, false}) {
      options.mnuAutoChat = on;
      const std::string_view sent = on ? c.with_auto_chat : c.without;
      EXPECT_EQ(Send(c.typed), sent) << c.typed;
      EXPECT_EQ(input.history().back(), sent);
      EXPECT_EQ(input.text(), "");
    }
  }
}

TEST_F(ChatInputTest, NothingHappensWhenEmptyOrNotLoggedIn) {
  EXPECT_EQ(Send(""), "-");
  values.IsConnected = false;
  socket.connected = true;
  EXPECT_EQ(Send(" kept "), "-");
  EXPECT_EQ(input.text(), " kept ");
  EXPECT_THAT(input.history(), IsEmpty());
}

TEST_F(ChatInputTest, TheLimitCountsTheTextAsTyped) {
  const std::string limit(250, 'x');
  EXPECT_EQ(Send(limit + "y"), "-");
  EXPECT_FALSE(input.IsSendEnabled());
  EXPECT_EQ(input.Remaining(), -1);
  EXPECT_EQ(Send(std::string(251, ' ')), "-");
  input.TextEdited(limit);
  EXPECT_TRUE(input.IsSendEnabled());
  EXPECT_EQ(input.Remaining(), 0);
  EXPECT_EQ(Send(limit), "c " + limit);
}

TEST_F(ChatInputTest, UpAndDownRecallLinesAsTypedAndKeepTheDraft) {
  for (const char* line : {"one", " /two", " /two"}) {
    Send(line);
  }
  EXPECT_THAT(input.history(), ElementsAre("c one", "two", "two"));
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
  EXPECT_EQ(Send("c word"), "c c word");
}

}  // namespace
}  // namespace korvanta

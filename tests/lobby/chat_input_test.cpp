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
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"hello", "c hello"}, {"  hello  ", "c hello"}, {"/who", "who"},
      {" /who", "who"},     {"//who", "/who"},        {"/", ""},
      {"   ", "c "},        {"\thi", "c \thi"},       {"/ who", " who"},
  };
  for (const auto& [typed, sent] : cases) {
    EXPECT_EQ(Send(typed), sent) << typed;
    EXPECT_EQ(input.history().back(), sent);
    EXPECT_EQ(input.text(), "");
  }
}

TEST_F(ChatInputTest, WithoutAutoChatTheTrimmedTextLeavesAsItIs) {
  options.mnuAutoChat = false;
  EXPECT_EQ(Send(" hello "), "hello");
  EXPECT_EQ(Send("/who"), "/who");
  EXPECT_EQ(Send("   "), "");
  EXPECT_THAT(input.history(), ElementsAre("hello", "/who", ""));
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

TEST_F(ChatInputTest, UpAndDownWalkTheHistoryAndKeepTheDraft) {
  Send("one");
  Send("two");
  Send("two");
  input.TextEdited("draft");
  input.HistoryUp();
  input.HistoryUp();
  input.HistoryUp();
  EXPECT_EQ(input.text(), "c one");
  input.HistoryUp();
  EXPECT_EQ(input.text(), "c one");
  input.HistoryDown();
  EXPECT_EQ(input.text(), "c two");
  input.HistoryDown();
  input.HistoryDown();
  EXPECT_EQ(input.text(), "draft");
  input.HistoryDown();
  EXPECT_EQ(input.text(), "draft");
}

TEST_F(ChatInputTest, AnEditedHistoryLineIsTheNewDraft) {
  Send("one");
  Send("two");
  input.HistoryUp();
  input.HistoryUp();
  input.TextEdited("c one more");
  input.HistoryUp();
  EXPECT_EQ(input.text(), "c two");
  input.HistoryDown();
  EXPECT_EQ(input.text(), "c one more");
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

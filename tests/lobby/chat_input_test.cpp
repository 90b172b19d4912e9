#include "lobby/chat_input.h"

#include <gtest/gtest.h>

#include "tests/fakes/logged_in_player.h"

namespace korvanta {
namespace {

struct ChatInputTest : testing::Test, fakes::LoggedInPlayer {
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
    for (const bool on : {false, true}) {
      options.mnuAutoChat = on;
      const std::string& sent = on ? c.with_auto_chat : c.without;
      EXPECT_EQ(Send(c.typed), "[ctc]" + sent + ";") << c.typed;
      EXPECT_EQ(input.history().back(), sent);
      EXPECT_EQ(input.text(), "");
    }
  }
  input.HistoryChosen(0);
  EXPECT_EQ(input.text(), "hello") << "as it was sent";
  input.HistoryChosen(99);
  EXPECT_EQ(Send(input.text()), "[ctc]c hello;");
}

TEST_F(ChatInputTest, ALineThatCannotBeSentStays) {
  const std::string longest(250, 'x');
  const std::tuple<std::string, bool, std::ptrdiff_t> cases[] = {{"", true, 250},
                                                                 {" kept ", false, 244},
                                                                 {longest, false, 0},
                                                                 {std::string(251, ' '), true, -1}};
  for (const auto& [typed, logged_in, remaining] : cases) {
    values.IsConnected = logged_in;
    EXPECT_EQ(Send(typed), "") << typed;
    EXPECT_EQ(input.text(), typed);
    EXPECT_EQ(input.Remaining(), remaining);
    EXPECT_EQ(input.IsSendEnabled(), remaining >= 0);
  }
  EXPECT_TRUE(input.history().empty());
  EXPECT_EQ(Send(longest), "[ctc]c " + longest + ";");
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

}  // namespace
}  // namespace korvanta

/// The line that a player types, and the filter over what others say.
#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "lobby/chat_input.h"
#include "lobby/language_filter.h"
#include "protocol/wire_format.h"
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

std::string Filtered(std::string_view text, std::string_view words) {
  LanguageFilter filter;
  filter.SetFilterWords(words);
  std::string masked;
  return std::string(filter.FilterLanguage(text, masked));
}

/// The rule taken word by word: a pass over the whole text for each.
std::string InPasses(std::string text, std::string_view words) {
  for (std::string_view word : Split(words, ';')) {
    for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
      if (std::equal(word.begin(), word.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                     [](unsigned char a, unsigned char b) { return tolower(a) == tolower(b); })) {
        text.replace(at, word.size(), word.size(), '*');
      }
    }
  }
  return text;
}

/// Texts of bits of words, of strays between them, and of bytes that are a letter but for one bit.
TEST(LanguageFilter, MasksWhatAPassForEachWordMasks) {
  std::mt19937 random;
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  for (const std::string_view words :
       {modData::kFilterWords, std::string_view("Ass;Bad;Dab;Assess;Seas;Adabadd;Aaa;Zaz")}) {
    const std::vector<std::string_view> list(Split(words, ';').begin(), Split(words, ';').end());
    for (int round = 0; round < 5'000; ++round) {
      std::string text;
      for (std::size_t pieces = below(below(50) == 0 ? 200 : 12); pieces > 0; --pieces) {
        const std::string_view word = list[below(list.size())];
        text += word.substr(below(4) == 0 ? below(word.size()) : 0,
                            below(3) == 0 ? below(word.size()) : word.size());
        if (below(4) == 0) {
          text += "* @[\n\xE1"[below(6)];
        }
      }
      for (char& letter : text) {
        constexpr int kFlips[] = {0x20, 0x20, 0x20, 0x20, 0x20, 0x20, 0x40, 0x80};
        letter = static_cast<char>(letter ^ (below(3) == 0 ? kFlips[below(8)] : 0));
      }
      ASSERT_EQ(Filtered(text, words), InPasses(text, words)) << text;
    }
  }
}

}  // namespace
}  // namespace korvanta

/// The text of the message view and the search in it.
#include "lobby/message_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "fuzz/message_view_oracle.h"
#include "lobby/message_search.h"
#include "lobby/text_search.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

/// Short lines of bits and breaks, as the fuzz target's events.
TEST(MessageViewRandom, AgreesWithThePlainViewInChunksOfAnySize) {
  for (const std::size_t chunk_size : {std::size_t{1}, std::size_t{2}, std::size_t{7},
                                       std::size_t{64}, ColouredText::kChunkSize}) {
    std::mt19937 random(20240613);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    fuzz::MessageViewOracle oracle(chunk_size);
    for (int step = 0; step < 2000; ++step) {
      const bool is_line = below(2) == 0;
      std::string text(is_line ? below(below(10) == 0 ? 60 : 9) : 2, '\0');
      for (char& byte : text) {
        byte = is_line ? "ab: \r\n"[below(6)] : static_cast<char>(below(256));
      }
      const char letter = below(200) == 0 ? 'C' : "KMMMSSSSSSSSSS"[below(14)];
      oracle.Act({is_line ? static_cast<char>('a' + below(9)) : letter, text});
    }
  }
}

struct MessageViewTest : testing::Test {
  Options options;
  MessageView view{options, 16};
};

TEST_F(MessageViewTest, EachKindOfLineHasItsColours) {
  const std::tuple<int, Colour, Colour> cases[] = {
      {0, {0, 0, 128}, {64, 64, 192}},     {1, {0, 128, 128}, {0, 164, 164}},
      {2, {128, 0, 255}, {168, 81, 255}},  {3, {0, 0, 0}, {0, 0, 0}},
      {4, {176, 0, 0}, {215, 0, 0}},       {5, {0, 140, 0}, {0, 183, 0}},
      {6, {64, 128, 128}, {78, 156, 156}}, {9, {0, 0, 0}, {0, 0, 0}},
      {-1, {0, 0, 0}, {0, 0, 0}}};
  for (const auto& [kind, first, second] : cases) {
    view.Clear();
    view.AppendMessage("Corin: at 10:30", static_cast<MessageKind>(kind));
    Excerpt all;
    view.text().Read(0, view.size(), all);
    EXPECT_EQ(all.runs.front().end, first == second ? 17U : 6U);
    EXPECT_EQ(ColourOf(all.runs.front().role), first) << kind;
    EXPECT_EQ(ColourOf(all.runs.back().role), second) << kind;
  }
}

TEST_F(MessageViewTest, WordsAreFoundInsideLines) {
  // Offsets:          0         10          20
  view.AppendMessage("Aster: don't  caf\xe9!", MessageKind::Status);
  view.AppendMessage("  b", MessageKind::Status);
  const ColouredText& text = view.text();
  const std::pair<std::size_t, TextRange> words[] = {
      {0, {0, 5}},    {5, {5, 6}},    {9, {7, 12}},   {12, {12, 14}}, {17, {14, 18}},
      {19, {18, 19}}, {20, {18, 19}}, {21, {21, 23}}, {23, {23, 24}}, {26, {26, 26}},
  };
  for (const auto& [offset, word] : words) {
    EXPECT_EQ(WordAt(text, offset), word) << offset;
  }
  const auto walk = [&text](auto step, std::size_t from, std::size_t to) {
    std::vector<std::size_t> places;
    while (from != to) {
      places.push_back(from = step(text, from));
    }
    return places;
  };
  EXPECT_THAT(walk(NextWord, 0, 26), ElementsAre(5, 7, 14, 18, 19, 21, 23, 24, 26));
  EXPECT_THAT(walk(PreviousWord, 26, 0), ElementsAre(24, 23, 21, 19, 18, 14, 7, 5, 0));
}

TEST_F(MessageViewTest, WordsAreOfLettersDigitsUnderscoresAndApostrophes) {
  // Where the word ends and the next begins in "x", the byte, "/".
  const std::tuple<std::string, std::size_t, std::size_t> cases[] = {
      {"09AZaz_'\x83\x8A\x8C\x8E\x92\x9A\x9C\x9E\x9F\xC0\xD6\xD8\xF6\xF8\xFF", 2, 2},
      {"/:@[`{\x82\x84\x91\x93\xBF\xD7\xF7", 1, 1},
      {" \t\xA0", 1, 2}};
  for (const auto& [bytes, word_end, next_word] : cases) {
    for (const char byte : bytes) {
      ColouredText text;
      text.Insert(0, std::string{'x', byte, '/'}, ColourRole::Black);
      EXPECT_EQ(WordAt(text, 0), (TextRange{0, word_end})) << byte;
      EXPECT_EQ(NextWord(text, 0), next_word) << byte;
    }
  }
}

using Direction = MessageSearch::Direction;
using Outcome = MessageSearch::Outcome;

TEST(TextSearch, AgreesWithAPlainSearchAcrossBlocksAndChunks) {
  ColouredText text(1000);
  for (int line = 0; text.size() < 150'000; ++line) {
    text.Insert(text.size(),
                "Aster: wor" + std::string(static_cast<std::size_t>(line % 7), 'w') + "d " +
                    std::to_string(line % 100) + "\r\n",
                ColourRole::Black);
  }
  const std::string all = text.Bytes(0, text.size());
  for (const std::string sought : {"word 42", "d", "\r\nAster"}) {
    for (std::size_t from = 0; from < 5'000; ++from) {
      ASSERT_EQ(FindFirst(text, sought, from), all.find(sought, from)) << sought << from;
      const std::size_t to = text.size() - from;
      ASSERT_EQ(FindLast(text, sought, to), all.rfind(sought, to - sought.size())) << sought << to;
    }
  }
  EXPECT_FALSE(FindFirst(text, "absent", 0) || FindLast(text, "absent", text.size()));
}

TEST(TextSearch, LetterCaseOfTheWholeCharacterSetIsAllOne) {
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"AbZ", "aBz", true},    {"\xC9\xDE", "\xE9\xFE", true},
      {"\x9F", "\xFF", true},  {"\x8A\x8C\x8E", "\x9A\x9C\x9E", true},
      {"@", "`", false},       {"[", "{", false},
      {"\xD7", "\xF7", false}, {"\xDF", "\xFF", false},
      {"\x80", "\x90", false}};
  for (const auto& [bytes, sought, is_same] : cases) {
    ColouredText text;
    text.Insert(0, bytes, ColourRole::Black);
    EXPECT_EQ(FindFirst(text, sought, 0).has_value(), is_same) << bytes;
    EXPECT_EQ(FindLast(text, sought, text.size()).has_value(), is_same) << bytes;
  }
}

struct MessageSearchTest : testing::Test {
  MessageSearchTest() {
    view_.on_changed = [this](const auto& change) { search_.TextChanged(change); };
    for (const char* line : {"ash ash", "oak", "Ash"}) {  // at 0, 9, 14
      view_.AppendMessage(line, MessageKind::Status);
    }
  }

  Options options_;
  MessageView view_{options_};
  MessageSearch search_{view_};
};

TEST_F(MessageSearchTest, GoesThroughTheMatchesBothWaysAndKeepsItsPlace) {
  const struct {
    const char* typed;  // "<" goes to an older match, ">" to a newer one
    Outcome outcome;
    TextRange match;
  } steps[] = {{"a", Outcome::Found, {14, 15}},
               {"ash", Outcome::Found, {14, 17}},
               {"<", Outcome::Found, {4, 7}},
               {"ashx", Outcome::NoMatch, {0, 0}},
               {"ash", Outcome::Found, {4, 7}},
               {"<", Outcome::Found, {0, 3}},
               {"<", Outcome::WrappedToNewest, {14, 17}},
               {">", Outcome::WrappedToOldest, {0, 3}},
               {">", Outcome::Found, {4, 7}},
               {"oak", Outcome::WrappedToNewest, {9, 12}},
               {"<", Outcome::WrappedToNewest, {9, 12}},
               {"", Outcome::Nothing, {0, 0}},
               {"<", Outcome::Nothing, {0, 0}}};
  for (const auto& [typed, outcome, match] : steps) {
    EXPECT_EQ(*typed == '<'   ? search_.Next(Direction::Older)
              : *typed == '>' ? search_.Next(Direction::Newer)
                              : search_.SetTerm(typed),
              outcome);
    EXPECT_EQ(search_.match(), match);
  }
}

TEST_F(MessageSearchTest, TheMatchIsNotWhereLinesGoAndLinesDoNotMoveIt) {
  view_.MoveCaret(9, false);
  options_.mnuScrollLock = true;
  search_.SetTerm("ash");
  search_.Next(Direction::Older);
  EXPECT_EQ(view_.insertion_point(), 9U);
  view_.AppendMessage("elm", MessageKind::Status);  // between the matches
  EXPECT_EQ(search_.match(), (TextRange{4, 7}));
  EXPECT_EQ(view_.insertion_point(), 14U);
  search_.Next(Direction::Newer);
  view_.AppendMessage("yew", MessageKind::Status);
  EXPECT_EQ(search_.match(), (TextRange{24, 27}));
  search_.SelectMatch();
  EXPECT_EQ(view_.SelectedText(), "Ash");
  search_.SetTerm("ashy");
  view_.Select(0, 0);
  view_.AppendMessage("fir", MessageKind::Status);  // the place is kept without a match, too
  search_.SetTerm("ash");
  EXPECT_EQ(search_.match(), (TextRange{29, 32}));
  view_.Clear();
  EXPECT_TRUE(search_.match().empty());
  view_.AppendMessage("ash", MessageKind::Status);
  EXPECT_EQ(search_.Next(Direction::Older), Outcome::Found);
}

}  // namespace
}  // namespace korvanta

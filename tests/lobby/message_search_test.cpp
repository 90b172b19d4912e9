#include "lobby/message_search.h"

#include <gtest/gtest.h>
#include <vector>

#include "lobby/text_search.h"

namespace korvanta {
namespace {

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
  for (const std::string sought : {"word 42", "d", "\r\nAster", "wword 9", "absent"}) {
    std::vector<std::size_t> plain;
    for (auto at = all.find(sought); at != std::string::npos; at = all.find(sought, at + 1)) {
      plain.push_back(at);
    }
    std::vector<std::size_t> down;
    for (auto at = FindFirst(text, sought, 0); at; at = FindFirst(text, sought, *at + 1)) {
      down.push_back(*at);
    }
    EXPECT_EQ(down, plain) << sought;
    std::vector<std::size_t> up;
    for (auto at = FindLast(text, sought, text.size()); at;
         at = FindLast(text, sought, *at + sought.size() - 1)) {
      up.insert(up.begin(), *at);
    }
    EXPECT_EQ(up, plain) << sought;
  }
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

class MessageSearchTest : public testing::Test {
 protected:
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

#include "lobby/message_search.h"

#include <gtest/gtest.h>
#include <vector>

#include "lobby/text_search.h"
#include "lobby/unseen_lines.h"

namespace korvanta {
namespace {

using Direction = MessageSearch::Direction;
using Outcome = MessageSearch::Outcome;

TEST(TextSearch, AgreesWithAPlainSearchAcrossBlocksAndChunks) {
  Options options;
  MessageView view(options, 1000);
  for (int line = 0; view.size() < 150'000; ++line) {
    view.AppendMessage("Aster: wor" + std::string(static_cast<std::size_t>(line % 7), 'w') + "d " +
                           std::to_string(line % 100),
                       MessageKind::Chat);
  }
  const std::string all = view.text().Bytes(0, view.size());
  for (const std::string sought : {"word 42", "d", "\r\nAster", "wword 9", "absent"}) {
    std::vector<std::size_t> plain;
    for (auto at = all.find(sought); at != std::string::npos; at = all.find(sought, at + 1)) {
      plain.push_back(at);
    }
    std::vector<std::size_t> down;
    for (auto at = FindFirst(view.text(), sought, 0); at;
         at = FindFirst(view.text(), sought, *at + 1)) {
      down.push_back(*at);
    }
    EXPECT_EQ(down, plain) << sought;
    std::vector<std::size_t> up;
    for (auto at = FindLast(view.text(), sought, view.size()); at;
         at = FindLast(view.text(), sought, *at + sought.size() - 1)) {
      up.insert(up.begin(), *at);
    }
    EXPECT_EQ(up, plain) << sought;
  }
}

TEST(TextSearch, LetterCaseOfTheWholeCharacterSetIsAllOne) {
  const std::pair<const char*, const char*> pairs[] = {
      {"AbZ", "aBz"}, {"\xC9\xDE", "\xE9\xFE"}, {"\x8A\x8C\x8E", "\x9A\x9C\x9E"}, {"\x9F", "\xFF"}};
  const std::pair<const char*, const char*> strangers[] = {
      {"@", "`"}, {"[", "{"}, {"\xD7", "\xF7"}, {"\xDF", "\xFF"}, {"\x80", "\x90"}};
  const Options options;
  for (const auto& [text, sought] : pairs) {
    MessageView view(options);
    view.AppendMessage(text, MessageKind::Status);
    EXPECT_EQ(FindFirst(view.text(), sought, 0), 0U) << text;
    EXPECT_EQ(FindLast(view.text(), text, view.size()), 0U) << text;
  }
  for (const auto& [text, sought] : strangers) {
    MessageView view(options);
    view.AppendMessage(text, MessageKind::Status);
    EXPECT_EQ(FindFirst(view.text(), sought, 0), std::nullopt) << text;
  }
}

class MessageSearchTest : public testing::Test {
 protected:
  MessageSearchTest() {
    view_.on_changed = [this](const MessageView::Change& change) {
      search_.TextChanged(change);
      unseen_.TextChanged(change, view_.IsScrollLocked());
    };
    for (const char* line : {"ash ash", "oak", "Ash"}) {  // at 0, 9, 14
      view_.AppendMessage(line, MessageKind::Status);
    }
  }

  Options options_;
  MessageView view_{options_};
  MessageSearch search_{view_};
  UnseenLines unseen_;
};

TEST_F(MessageSearchTest, GoesThroughTheMatchesBothWaysAndKeepsItsPlace) {
  struct Step {
    const char* typed;  // null: go that way
    Direction way;
    Outcome outcome;
    TextRange match;
  };
  constexpr Direction kOlder = Direction::Older;
  constexpr Direction kNewer = Direction::Newer;
  const Step steps[] = {{"a", kOlder, Outcome::Found, {14, 15}},
                        {"as", kOlder, Outcome::Found, {14, 16}},
                        {"ash", kOlder, Outcome::Found, {14, 17}},
                        {nullptr, kOlder, Outcome::Found, {4, 7}},
                        {"ashx", kOlder, Outcome::NoMatch, {0, 0}},
                        {"ash", kOlder, Outcome::Found, {4, 7}},
                        {nullptr, kOlder, Outcome::Found, {0, 3}},
                        {nullptr, kOlder, Outcome::FoundAgainFromNewest, {14, 17}},
                        {nullptr, kNewer, Outcome::FoundAgainFromOldest, {0, 3}},
                        {nullptr, kNewer, Outcome::Found, {4, 7}},
                        {"oak", kOlder, Outcome::FoundAgainFromNewest, {9, 12}},
                        {nullptr, kOlder, Outcome::FoundAgainFromNewest, {9, 12}},
                        {"", kOlder, Outcome::Nothing, {0, 0}},
                        {nullptr, kOlder, Outcome::Nothing, {0, 0}}};
  for (const auto& [typed, way, outcome, match] : steps) {
    EXPECT_EQ(typed != nullptr ? search_.Seek(typed) : search_.Next(way), outcome);
    EXPECT_EQ(search_.match(), match);
  }
}

TEST_F(MessageSearchTest, TheMatchIsNotWhereLinesGoAndLinesDoNotMoveIt) {
  view_.MoveCaret(9, false);
  options_.mnuScrollLock = true;
  search_.Seek("ash");
  search_.Next(Direction::Older);
  EXPECT_EQ(view_.insertion_point(), 9U);
  view_.AppendMessage("elm", MessageKind::Status);  // between the matches
  EXPECT_EQ(search_.match(), (TextRange{4, 7}));
  EXPECT_EQ(view_.insertion_point(), 14U);
  search_.Next(Direction::Newer);
  view_.AppendMessage("yew", MessageKind::Status);
  EXPECT_EQ(search_.match(), (TextRange{24, 27}));
  EXPECT_EQ(unseen_.Caption(), "2 new lines");
  EXPECT_EQ(unseen_.newest(), 14U);

  search_.Take();
  EXPECT_EQ(view_.SelectedText(), "Ash");
  view_.Clear();
  EXPECT_TRUE(search_.match().empty());
  EXPECT_EQ(unseen_.count(), 0U);
  view_.AppendMessage("ash", MessageKind::Status);
  EXPECT_EQ(unseen_.Caption(), "1 new line");
  EXPECT_EQ(search_.Next(Direction::Older), Outcome::Found);
  options_.mnuScrollLock = false;
  view_.AppendMessage("ash", MessageKind::Status);
  EXPECT_EQ(search_.match(), (TextRange{0, 3}));
  EXPECT_EQ(unseen_.count(), 0U);
}

}  // namespace
}  // namespace korvanta

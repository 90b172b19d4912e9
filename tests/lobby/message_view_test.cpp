#include "lobby/message_view.h"

#include <gmock/gmock.h>
#include <random>

#include "fuzz/message_view_oracle.h"

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

TEST_F(MessageViewTest, NotifiesOfEachChangeAndOfNothingElse) {
  std::string log;
  view.on_changed = [&log](const MessageView::Change& change) {
    log += "icsl"[static_cast<int>(change.what)] + std::to_string(change.offset) + "+" +
           std::to_string(change.length) + " ";
  };
  view.Clear();
  view.Select(0, 5);
  view.AppendMessage("A: b", MessageKind::Chat);
  options.mnuScrollLock = true;
  view.Select(3, 1);
  view.Select(3, 1);
  view.AppendMessage("x", MessageKind::Status);
  view.Clear();
  view.ScrollLockToggled();
  EXPECT_EQ(log, "i0+6 s0+0 i3+3 c0+0 l0+0 ");
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

}  // namespace
}  // namespace korvanta

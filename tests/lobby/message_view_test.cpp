#include "lobby/message_view.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <random>

#include "tests/fakes/plain_message_view.h"

namespace korvanta {
namespace {

using fakes::Letters;
using fakes::PlainMessageView;
using testing::ElementsAre;

Excerpt All(const ColouredText& text) {
  Excerpt excerpt;
  text.Read(0, text.size(), excerpt);
  return excerpt;
}

struct MessageViewRandom : testing::TestWithParam<std::size_t> {};

TEST_P(MessageViewRandom, AgreesWithThePlainView) {
  std::mt19937 random(20240613);
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  Options options;
  MessageView view(options, GetParam());
  PlainMessageView plain;
  for (int step = 0; step < 6000; ++step) {
    const std::size_t action = below(100);
    if (action < 55) {
      std::string text(below(below(10) == 0 ? 60 : 9), 'x');
      for (char& byte : text) {
        byte = "ab: \r\n"[below(6)];
      }
      const auto kind = static_cast<MessageKind>(below(9));
      plain.Append(text, kind, options.mnuScrollLock);
      view.AppendMessage(text, kind);
    } else if (action < 90) {
      const std::size_t anchor = below(view.size() + 3);
      const std::size_t caret = below(3) == 0 ? anchor : below(view.size() + 3);
      plain.Select(anchor, caret);
      view.Select(anchor, caret);
    } else if (action < 99) {
      options.mnuScrollLock = below(4) != 0;
    } else if (below(4) == 0) {
      plain = {};
      view.Clear();
    }
    ASSERT_EQ(view.anchor(), plain.anchor) << step;
    ASSERT_EQ(view.caret(), plain.caret) << step;
    const Excerpt all = All(view.text());
    ASSERT_EQ(all.bytes, plain.bytes) << step;
    ASSERT_EQ(Letters(all), plain.letters) << step;

    const std::size_t from = below(view.size() + 1);
    const std::size_t to = from + below(view.size() - from + 1);
    Excerpt part;
    view.text().Read(from, to, part);
    ASSERT_EQ(part.bytes, plain.bytes.substr(from, to - from)) << step;
    ASSERT_EQ(Letters(part), plain.letters.substr(from, to - from)) << step;
    for (std::size_t run = 1; run < part.runs.size(); ++run) {
      ASSERT_NE(part.runs[run - 1].role, part.runs[run].role) << step;
    }
    ASSERT_EQ(view.text().Bytes(from, to), part.bytes) << step;
    ASSERT_EQ(view.SelectedText(), plain.SelectedText()) << step;
    ASSERT_EQ(LineAt(view.text(), from), plain.Line(from)) << step;
    const TextRange word = WordAt(view.text(), from);
    ASSERT_LE(word.from, plain.Place(from)) << step;
    ASSERT_GE(word.to, plain.Place(from)) << step;
    if (from < view.size()) {
      ASSERT_EQ(view.text().At(from), plain.bytes[from]) << step;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(ChunkSizes, MessageViewRandom,
                         testing::Values(1, 2, 7, 64, ColouredText::kChunkSize));

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
    const std::vector<ColourRun> runs = All(view.text()).runs;
    EXPECT_EQ(runs.front().end, first == second ? 17U : 6U);
    EXPECT_EQ(ColourOf(runs.front().role), first) << kind;
    EXPECT_EQ(ColourOf(runs.back().role), second) << kind;
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
  view.AppendMessage("", MessageKind::Status);
  const ColouredText& text = view.text();
  const std::pair<std::size_t, TextRange> words[] = {
      {0, {0, 5}},    {5, {5, 6}},    {9, {7, 12}},   {12, {12, 14}}, {17, {14, 18}},
      {19, {18, 19}}, {20, {18, 19}}, {21, {21, 21}}, {23, {23, 23}},
  };
  for (const auto& [offset, word] : words) {
    EXPECT_EQ(WordAt(text, offset), word) << offset;
  }
  std::vector<std::size_t> forward;
  for (std::size_t at = 0; at < text.size();) {
    forward.push_back(at = NextWord(text, at));
  }
  EXPECT_THAT(forward, ElementsAre(5, 7, 14, 18, 19, 21, 23));
  std::vector<std::size_t> back;
  for (std::size_t at = text.size(); at > 0;) {
    back.push_back(at = PreviousWord(text, at));
  }
  EXPECT_THAT(back, ElementsAre(21, 19, 18, 14, 7, 5, 0));
}

}  // namespace
}  // namespace korvanta

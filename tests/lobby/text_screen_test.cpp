/// The rows of the message view, where it looks, and how its caret moves.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "lobby/caret_mover.h"
#include "lobby/line_layout.h"
#include "lobby/scroll_position.h"

namespace korvanta {
namespace {

/// Every byte is 1 wide but these.
Advances TestAdvances() {
  Advances advances;
  advances.fill(1);
  advances['m'] = 2.5F;
  advances['\t'] = 4;
  return advances;
}

TEST(WrapRow, EndsWhereItShould) {
  const std::tuple<const char*, std::string, Row> cases[] = {
      {"empty text", "", {0, 0, 0}},
      {"fits exactly", "abcde", {0, 5, 5}},
      {"pair of break bytes", "ab\r\ncd", {0, 2, 4}},
      {"lone breaks", "ab\r\rcd", {0, 2, 3}},
      {"line feed first", "\n\r\n", {0, 0, 1}},
      {"behind the last space", "ab cdef", {0, 3, 3}},
      {"space that fits", "abcd ef", {0, 5, 5}},
      {"space that hangs over", "abcde fg", {0, 6, 6}},
      {"only one space hangs over", "abcde  f", {0, 6, 6}},
      {"break behind a hanging space", "abcde \r\nf", {0, 6, 8}},
      {"text ends with a hanging space", "abcde ", {0, 6, 6}},
      {"long word", "abcdefgh", {0, 5, 5}},
      {"wide bytes", "ammm", {0, 2, 2}},
      {"full row before a break", "abcde\r\n", {0, 5, 7}},
      {"tab", "a\tbc", {0, 2, 2}},
  };
  for (const auto& [name, text, row] : cases) {
    EXPECT_EQ(WrapRow(text, TestAdvances(), 5), row) << name;
  }
  EXPECT_EQ(WrapRow("mm", TestAdvances(), 1), (Row{0, 1, 1})) << "a byte wider than the row";
  EXPECT_EQ(WrapRow("m\r\n", TestAdvances(), 1), (Row{0, 1, 3})) << "no empty row behind it";
}

TEST(TextRows, AgreeWithWrappingEverything) {
  std::mt19937 random(7);
  const Advances advances = TestAdvances();
  for (int round = 0; round < 300; ++round) {
    ColouredText text(1 + random() % 9);
    std::string bytes(random() % 120, 'x');
    for (char& byte : bytes) {
      byte = "abcm  \t\r\n"[random() % (round % 3 == 0 ? 4 : 9)];
    }
    // Every third text is one long word, far longer than what is read at a time.
    for (int doubling = 0; round % 30 == 0 && doubling < 9; ++doubling) {
      bytes += bytes;
    }
    text.Insert(0, bytes, ColourRole::Black);
    const float width = static_cast<float>(random() % 12);
    TextRows rows(text, advances);
    rows.SetWidth(width);

    std::vector<Row> all;
    for (std::size_t at = 0;;) {
      const Row row = WrapRow(std::string_view(bytes).substr(at), advances, width);
      all.push_back({at, at + row.end, at + row.next});
      at = all.back().next;
      if (at == bytes.size() && !all.back().EndsLine()) {
        break;
      }
    }
    for (int probe = 0; probe < 20; ++probe) {
      const std::size_t index = random() % all.size();
      const Row& row = all[index];
      ASSERT_EQ(rows.At(row.start), row);
      ASSERT_EQ(rows.IsLast(row), index + 1 == all.size());
      ASSERT_EQ(rows.StartOf(row.start), row.start);
      ASSERT_EQ(rows.StartOf((row.start + row.end) / 2), row.start);
      const std::size_t steps = random() % 30;
      ASSERT_EQ(rows.Up(row.start, steps), all[index - std::min(index, steps)].start);
      ASSERT_EQ(rows.Down(row.start, steps), all[std::min(index + steps, all.size() - 1)].start);
    }
  }
}

using Motion = CaretMover::Motion;
using Unit = CaretMover::Unit;

/// A view on a screen of four rows of ten bytes, each one wide.
struct TextScreen : testing::Test {
  TextScreen() {
    SetWidth(10);
    view.on_changed = [this](const MessageView::Change& change) { position.TextChanged(change); };
  }

  void SetWidth(float width) {
    rows.SetWidth(width);
    position.Rewrap(4);
  }

  void Write(std::string_view text) {
    view.AppendMessage(text, MessageKind::Status);
    position.Settle();
  }

  void Lock(bool on) {
    options.mnuScrollLock = on;
    view.ScrollLockToggled();
    position.Settle();
  }

  Options options;
  MessageView view{options, 64};
  Advances advances = TestAdvances();
  TextRows rows{view.text(), advances};
  ScrollPosition position{view, rows};
};

struct ScrollPositionTest : TextScreen {
  struct Step {
    const char* name;
    std::function<void()> act;
    const char* top;
    std::size_t unseen = 0;
  };

  void WriteLines(int count) {
    for (; count > 0; --count) {
      Write("line " + std::to_string(written++));
    }
  }

  void Run(const std::vector<Step>& steps) {
    for (const auto& [name, act, top, unseen] : steps) {
      act();
      const Row row = rows.At(position.top());
      EXPECT_EQ(view.text().Bytes(row.start, row.end), top) << name;
      EXPECT_EQ(position.unseen().count(), unseen) << name;
    }
  }

  int written = 0;
};

TEST_F(ScrollPositionTest, FollowsTheEndAndScrollsByRowsAndPagesBetweenBothEnds) {
  const TextRange line_5{8 * 5, 8 * 5 + 3};
  const TextRange line_6{8 * 6, 8 * 6 + 3};
  Run({
      {"follows", [&] { WriteLines(20); }, "line 16"},
      {"to the start", [&] { position.ScrollTo(0); }, "line 0"},
      {"inside a row", [&] { position.ScrollTo(18); }, "line 2"},
      {"down", [&] { position.ScrollRows(1); }, "line 3"},
      {"a page", [&] { position.ScrollRows(position.page()); }, "line 6"},
      {"a page up", [&] { position.ScrollRows(-position.page()); }, "line 3"},
      {"beyond the start", [&] { position.ScrollRows(-9); }, "line 0"},
      {"into sight below", [&] { position.Show(8 * 5); }, "line 2"},
      {"into sight above", [&] { position.Show(8); }, "line 1"},
      {"to the middle", [&] { position.ShowCentred(line_5); }, "line 3"},
      {"in sight", [&] { position.ShowCentred(line_6); }, "line 3"},
      {"beyond the end", [&] { position.ScrollRows(99); }, "line 16"},
      {"follows after scrolling", [&] { position.ScrollTo(0), WriteLines(1); }, "line 17"},
      {"a text from its start", [&] { view.ShowText("a\nb\nc\nd\ne"), position.Settle(); }, "a"},
  });
}

TEST_F(ScrollPositionTest, ScrollLockHoldsWhatIsSeenAndCountsWhatIsNot) {
  const auto write_at = [&](std::size_t caret) {
    view.MoveCaret(caret, false);
    WriteLines(2);
  };
  WriteLines(20);
  Lock(true);
  Run({
      {"the empty last row counts", [&] { position.ScrollTo(view.size()); }, "line 17"},
      {"up", [&] { position.ScrollRows(-7); }, "line 10"},
      {"above", [&] { write_at(8); }, "line 10", 2},
      {"at the top", [&] { write_at(position.top()); }, "line 10", 4},
      {"in sight", [&] { write_at(position.top() + 9); }, "line 10"},
      {"below", [&] { write_at(view.size()); }, "line 10", 2},
      {"to the newest", [&] { position.ShowUnseen(); }, "line 18"},
      {"a long one", [&] { Write("one long line in rows"); }, "line 18", 1},
      {"all of it", [&] { position.ShowUnseen(); }, "line 27"},
      {"none left", [&] { position.ScrollTo(0), position.ShowUnseen(); }, "line 0"},
      {"unseen in the middle", [&] { write_at(64); }, "line 0", 2},
      {"unlocked", [&] { Lock(false); }, "line 0", 2},
      {"the next line", [&] { WriteLines(1); }, "one long "},
      {"locked and emptied", [&] { Lock(true), view.Clear(), WriteLines(9); }, "line 31", 5},
      {"emptied for good", [&] { view.Clear(), position.Settle(); }, ""},
  });
}

TEST_F(ScrollPositionTest, WrappingAnewKeepsTheFirstByteOrTheEnd) {
  for (int line = 0; line < 9; ++line) {
    Write("word after word " + std::to_string(line));  // 19 bytes with its break
  }
  const auto to_end = [&] {
    SetWidth(30);
    position.ScrollTo(view.size());
  };
  Run({
      {"the end is kept", [&] { SetWidth(30); }, "word after word 5"},
      {"narrower too", [&] { SetWidth(10); }, "word after "},
      {"a row inside a line", [&] { position.ScrollTo(19 * 2 + 12); }, "word 2"},
      {"wide", [&] { SetWidth(30); }, "word after word 2"},
      {"back to the same row", [&] { SetWidth(10); }, "word 2"},
      {"split where it was", [&] { SetWidth(30), Lock(true), view.MoveCaret(40, false); },
       "word after word 2"},
      {"from its new first byte", [&] { Write("x"), SetWidth(10); }, "wox"},
      {"locked, at the end", [&] { Lock(true), to_end(); }, "word after word 6"},
      {"the byte is kept", [&] { SetWidth(10); }, "word after "},
      {"the end, when it is held", [&] { to_end(), position.HoldEnd(), SetWidth(10); }, "word 7"},
  });
}

struct CaretMoverTest : TextScreen {
  CaretMoverTest() {
    // Rows start at 0, 7, 13, 20, 24, 34 and 41, the end.
    for (const char* line : {"Aster: hello there", "ab", "Brisk: hi there"}) {
      Write(line);
    }
    Lock(true);
    position.ScrollTo(0);
  }

  std::pair<std::size_t, std::size_t> Ends() const { return {view.anchor(), view.caret()}; }

  CaretMover caret{view, position};
};

TEST_F(CaretMoverTest, KeysMoveAndExtend) {
  const struct {
    Motion motion;
    bool extend;
    std::size_t anchor, caret;
  } steps[] = {
      {Motion::Start, false, 0, 0},      {Motion::Right, false, 1, 1},
      {Motion::Right, true, 1, 2},       {Motion::Right, true, 1, 3},
      {Motion::Left, true, 1, 2},        {Motion::Down, true, 1, 9},
      {Motion::Right, false, 9, 9},      {Motion::RowEnd, false, 12, 12},
      {Motion::Down, false, 18, 18},     {Motion::Down, false, 22, 22},  // a short row between
      {Motion::Down, false, 29, 29},     {Motion::Up, false, 22, 22},
      {Motion::Up, false, 18, 18},       {Motion::Right, false, 20, 20},
      {Motion::Left, false, 18, 18},     {Motion::PageDown, false, 39, 39},
      {Motion::PageUp, false, 18, 18},   {Motion::RowStart, false, 13, 13},
      {Motion::WordRight, true, 13, 18}, {Motion::WordRight, true, 13, 20},
      {Motion::WordLeft, false, 18, 18}, {Motion::WordLeft, true, 18, 13},
      {Motion::Left, false, 13, 13},     {Motion::End, true, 13, 41},
      {Motion::Down, true, 13, 41},      {Motion::Start, false, 0, 0},
      {Motion::Up, false, 0, 0},
  };
  for (const auto& [motion, extend, anchor, at] : steps) {
    caret.Move(motion, extend);
    EXPECT_EQ(Ends(), (std::pair{anchor, at})) << static_cast<int>(motion);
    EXPECT_TRUE(position.IsVisible(at));
  }
}

TEST_F(CaretMoverTest, TheColumnIsForgottenWhenTheCaretGoesElsewhere) {
  view.MoveCaret(18, false);
  caret.Move(Motion::Down, false);
  caret.Press({0, 1}, Unit::Character, false);
  caret.Move(Motion::Down, false);
  EXPECT_EQ(view.caret(), 8U);
  view.AppendMessage("x", MessageKind::Status);  // its break leads to the row's start
  caret.TextChanged({MessageView::Change::What::Inserted});
  caret.Move(Motion::Down, false);
  EXPECT_EQ(rows.XOf(view.caret()), 0);
}

TEST_F(CaretMoverTest, TheMouseSelectsInUnits) {
  const struct {
    ScreenPosition press;
    Unit unit;
    bool extend;
    ScreenPosition drag;
    std::size_t anchor, caret;
  } cases[] = {
      {{0, 2.4F}, Unit::Character, false, {0, 2.4F}, 2, 2},
      {{0, 2.6F}, Unit::Character, false, {0, 2.6F}, 3, 3},
      {{0, 1}, Unit::Character, false, {0, 99}, 1, 7},  // the end of a wrapped row
      {{0, 99}, Unit::Character, false, {0, 0}, 6, 0},
      {{1, 2}, Unit::Character, true, {1, 2}, 6, 9},
      {{1, 4.9F}, Unit::Word, true, {1, 4.9F}, 7, 12},
      {{1, 4.9F}, Unit::Word, false, {2, 1}, 7, 18},
      {{1, 4.9F}, Unit::Word, false, {0, 1}, 12, 0},
      {{2, 99}, Unit::Word, false, {2, 99}, 13, 18},
      {{1, 0}, Unit::Line, false, {1, 0}, 0, 20},
      {{1, 0}, Unit::Line, false, {3, 0}, 0, 24},
      {{3, 0}, Unit::Line, false, {2, 0}, 24, 0},
  };
  for (const auto& [press, unit, extend, drag, anchor, at] : cases) {
    caret.Press(press, unit, extend);
    caret.DragTo(drag);
    EXPECT_EQ(Ends(), (std::pair{anchor, at})) << press.row << " " << press.x;
  }
}

}  // namespace
}  // namespace korvanta

#include "lobby/scroll_position.h"

#include <functional>
#include <gtest/gtest.h>

#include "tests/fakes/text_screen.h"

namespace korvanta {
namespace {

struct ScrollPositionTest : testing::Test, fakes::TextScreen {
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

  template <std::size_t kSteps>
  void Run(const Step (&steps)[kSteps]) {
    for (const auto& [name, act, top, unseen] : steps) {
      act();
      EXPECT_EQ(TopRow(), top) << name;
      EXPECT_EQ(position.unseen().count(), unseen) << name;
    }
  }

  int written = 0;
};

TEST_F(ScrollPositionTest, FollowsTheEndAndScrollsByRowsAndPagesBetweenBothEnds) {
  const Step steps[] = {
      {"follows", [&] { WriteLines(20); }, "line 16"},
      {"to the start", [&] { position.ScrollTo(0); }, "line 0"},
      {"inside a row", [&] { position.ScrollTo(18); }, "line 2"},
      {"down", [&] { position.ScrollRows(1); }, "line 3"},
      {"a page", [&] { position.ScrollRows(position.page()); }, "line 6"},
      {"a page up", [&] { position.ScrollRows(-position.page()); }, "line 3"},
      {"beyond the start", [&] { position.ScrollRows(-9); }, "line 0"},
      {"into sight below", [&] { position.Show(8 * 5); }, "line 2"},
      {"into sight above", [&] { position.Show(8); }, "line 1"},
      {"to the middle",
       [&] {
         position.ShowCentred({8 * 5, 8 * 5 + 3});
       },
       "line 3"},
      {"in sight",
       [&] {
         position.ShowCentred({8 * 6, 8 * 6 + 3});
       },
       "line 3"},
      {"beyond the end", [&] { position.ScrollRows(99); }, "line 16"},
      {"follows after scrolling", [&] { position.ScrollTo(0), WriteLines(1); }, "line 17"},
      {"a text from its start", [&] { view.ShowText("a\nb\nc\nd\ne"), position.Settle(); }, "a"},
  };
  Run(steps);
}

TEST_F(ScrollPositionTest, ScrollLockHoldsWhatIsSeenAndCountsWhatIsNot) {
  const auto write_at = [&](std::size_t caret) {
    view.MoveCaret(caret, false);
    WriteLines(2);
  };
  WriteLines(20);
  Lock(true);
  const Step steps[] = {
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
      {"unseen once more", [&] { write_at(view.size()); }, "line 0", 2},
      {"unlocked", [&] { Lock(false); }, "line 0"},
      {"the next line", [&] { WriteLines(1); }, "rows"},
      {"locked and emptied", [&] { Lock(true), view.Clear(), WriteLines(9); }, "line 31", 5},
      {"emptied for good", [&] { view.Clear(), position.Settle(); }, ""},
  };
  Run(steps);
}

TEST_F(ScrollPositionTest, WrappingAnewKeepsTheFirstByteOrTheEnd) {
  for (int line = 0; line < 9; ++line) {
    Write("word after word " + std::to_string(line));  // 19 bytes with its break
  }
  const auto to_end = [&] {
    SetWidth(30);
    position.ScrollTo(view.size());
  };
  const Step steps[] = {
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
  };
  Run(steps);
}

}  // namespace
}  // namespace korvanta

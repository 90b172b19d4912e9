#include "lobby/caret_mover.h"

#include <gtest/gtest.h>

#include "tests/fakes/text_screen.h"

namespace korvanta {
namespace {

using Motion = CaretMover::Motion;
using Unit = CaretMover::Unit;

struct CaretMoverTest : testing::Test, fakes::TextScreen {
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
  struct Step {
    Motion motion;
    bool extend;
    std::size_t anchor, caret;
  };
  const Step steps[] = {
      {Motion::Start, false, 0, 0},      {Motion::Right, false, 1, 1},
      {Motion::Right, true, 1, 2},       {Motion::Down, true, 1, 9},
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
    EXPECT_TRUE(position.IsInSight(at));
  }
}

TEST_F(CaretMoverTest, TheColumnIsForgottenWhenTheCaretGoesElsewhere) {
  view.MoveCaret(18, false);
  caret.Move(Motion::Down, false);
  caret.Press({0, 1}, Unit::Character, false);
  caret.Move(Motion::Down, false);
  EXPECT_EQ(view.caret(), 8U);

  view.MoveCaret(18, false);
  caret.Move(Motion::Up, false);
  caret.Move(Motion::Left, false);
  view.MoveCaret(18, false);
  caret.Move(Motion::Down, false);
  view.AppendMessage("x", MessageKind::Status);
  caret.TextChanged({MessageView::Change::What::Inserted});
  EXPECT_EQ(view.caret(), 25U);
  caret.Move(Motion::Down, false);
  EXPECT_EQ(view.caret(), 27U);
}

TEST_F(CaretMoverTest, TheMouseSelectsInUnits) {
  struct Case {
    ScreenPlace press;
    Unit unit;
    bool extend;
    ScreenPlace drag;
    std::size_t anchor, caret;
  };
  const Case cases[] = {
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

#include "ui/message_view/message_view_widget.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "ui/kit/text.h"
#include "ui/kit/theme.h"
#include "ui/message_view/glyph_table.h"

namespace korvanta {
namespace {

constexpr int kMargin = theme::kUnit;

struct MessageViewWidgetTest : testing::Test {
  MessageViewWidgetTest() {
    widget.resize(420, 220);
    widget.show();
    widget.activateWindow();
    widget.setFocus();
  }

  /// Lets the frame come that shows what changed.
  void Frame() const {
    const auto* const pending = widget.findChild<QTimer*>(QStringLiteral("frame"));
    ASSERT_NE(pending, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([pending] { return !pending->isActive(); }));
  }

  int written = 0;

  void Write(int lines) {
    for (int line = 0; line < lines; ++line) {
      view.AppendMessage("line " + std::to_string(written++), MessageKind::Status);
    }
    Frame();
  }

  void Lock(bool on) {
    options.mnuScrollLock = on;
    view.ScrollLockToggled();
    Frame();
  }

  /// The line that is seen first.
  std::string TopLine() {
    const std::size_t top = widget.position().top();
    return view.text().Bytes(top, LineEnd(view.text(), top));
  }

  QScrollBar& bar() const { return *widget.verticalScrollBar(); }

  void Wheel(int angle, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* const port = widget.viewport();
    const QPointF at = port->rect().center();
    QWheelEvent event(at, port->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(port, &event);
  }

  QImage Picture() const { return widget.viewport()->grab().toImage(); }

  /// Whether the ground of a match is in the picture.
  bool IsFoundPainted() const {
    const QImage image = Picture().convertToFormat(QImage::Format_RGB32);
    const auto* const pixels = reinterpret_cast<const QRgb*>(image.constBits());
    const auto* const end = pixels + image.width() * image.height();
    return std::find(pixels, end, theme::kFound.rgb()) != end;
  }

  /// The middle of the byte in that row, both counted in the viewport; the row's text is `text`.
  QPoint PointAt(int row, std::string_view text, std::size_t column) const {
    const float x = WidthOf(text.substr(0, column), glyphs.advances());
    return {kMargin + static_cast<int>(x) + 2,
            kMargin + row * glyphs.row_height() + glyphs.row_height() / 2};
  }

  Options options;
  MessageView view{options, 64};
  MessageViewWidget widget{view};
  GlyphTable glyphs{widget.font()};
};

TEST_F(MessageViewWidgetTest, BarAndWheelShowAndSetThePosition) {
  Write(200);
  EXPECT_EQ(bar().value(), bar().maximum());
  const int page = (widget.viewport()->height() - 2 * kMargin) / glyphs.row_height() - 1;
  const std::pair<std::function<void()>, int> steps[] = {
      {[&] { bar().setValue(0); }, 0},
      {[&] { bar().setValue(17); }, 2},  // inside "line 2", which starts at 16
      {[&] { bar().triggerAction(QAbstractSlider::SliderSingleStepAdd); }, 3},
      {[&] { bar().triggerAction(QAbstractSlider::SliderPageStepAdd); }, 3 + page},
      {[&] { bar().triggerAction(QAbstractSlider::SliderToMinimum); }, 0},
      {[&] { Wheel(-120); }, 3},
      {[&] { Wheel(-100); }, 5},
      {[&] { Wheel(-20); }, 6},  // a turn of parts is not lost
      {[&] { Wheel(120); }, 3},
      {[&] { QTest::keyClick(&widget, Qt::Key_Down, Qt::ControlModifier); }, 4},
      {[&] { bar().triggerAction(QAbstractSlider::SliderToMaximum); }, 200 - page - 1}};
  for (const auto& [step, line] : steps) {
    step();
    EXPECT_EQ(TopLine(), "line " + std::to_string(line));
    EXPECT_EQ(bar().value(), static_cast<int>(widget.position().top()));
  }
}

TEST_F(MessageViewWidgetTest, TheCaretOfScrollLockIsPainted) {
  Write(2);
  view.MoveCaret(3, false);
  widget.clearFocus();
  Frame();
  const QImage without = Picture();
  Lock(true);
  EXPECT_NE(Picture(), without);
  Lock(false);
  EXPECT_EQ(Picture(), without);
}

TEST_F(MessageViewWidgetTest, AFloodWaitsForTheNextFrame) {
  Frame();
  for (int line = 0; line < 1000; ++line) {
    view.AppendMessage("flood", MessageKind::Status);
  }
  EXPECT_EQ(bar().maximum(), 0);
  Frame();
  EXPECT_GT(bar().maximum(), 0);
}

TEST_F(MessageViewWidgetTest, MouseSelects) {
  const std::string line = "Aster: hello there";
  view.AppendMessage(line, MessageKind::Chat);
  view.AppendMessage("Brisk: second", MessageKind::Chat);
  Frame();
  QWidget* const port = widget.viewport();

  QTest::mouseClick(port, Qt::LeftButton, {}, PointAt(0, line, 7));
  QTest::mouseClick(port, Qt::RightButton, {}, PointAt(1, line, 3));
  QTest::mouseClick(port, Qt::LeftButton, Qt::ShiftModifier, PointAt(0, line, 12));
  EXPECT_EQ(view.SelectedText(), "hello");
  QTest::mousePress(port, Qt::LeftButton, {}, PointAt(1, "Brisk", 5));
  QTest::mouseMove(port, PointAt(0, line, 13));
  QTest::mouseRelease(port, Qt::LeftButton, {}, PointAt(0, line, 13));
  EXPECT_EQ(view.SelectedText(), "there\nBrisk");
  QTest::mouseDClick(port, Qt::LeftButton, {}, PointAt(0, line, 8));
  EXPECT_EQ(view.SelectedText(), "hello");
  QTest::mousePress(port, Qt::LeftButton, {}, PointAt(0, line, 8));
  EXPECT_EQ(view.SelectedText(), line + "\n");
}

TEST_F(MessageViewWidgetTest, ADragBeyondAnEdgeScrolls) {
  Write(100);
  Lock(true);
  QTest::mousePress(widget.viewport(), Qt::LeftButton, {}, PointAt(1, "", 0));
  QTest::mouseMove(widget.viewport(), {10, -5});
  ASSERT_TRUE(QTest::qWaitFor([&] { return TopLine() == "line 0"; }));
  QTest::mouseRelease(widget.viewport(), Qt::LeftButton, {}, {10, -5});
  EXPECT_LT(view.caret(), 8U);
  EXPECT_GT(view.anchor(), 600U);
}

TEST_F(MessageViewWidgetTest, TheDesktopsKeysMoveAndExtend) {
  for (int line = 0; line < 3; ++line) {
    view.AppendMessage("one two", MessageKind::Status);  // at 0, 9 and 18
  }
  Frame();
  const Qt::KeyboardModifiers none;
  const Qt::KeyboardModifiers control = Qt::ControlModifier;
  const std::tuple<Qt::Key, Qt::KeyboardModifiers, std::size_t> keys[] = {
      {Qt::Key_Home, control, 0},   {Qt::Key_Right, none, 1},   {Qt::Key_Down, none, 10},
      {Qt::Key_Right, control, 13}, {Qt::Key_Left, control, 9}, {Qt::Key_End, none, 16},
      {Qt::Key_Left, none, 15},     {Qt::Key_Home, none, 9},    {Qt::Key_Up, none, 0},
      {Qt::Key_PageDown, none, 27}, {Qt::Key_PageUp, none, 0},  {Qt::Key_End, control, 27}};
  for (const bool extend : {false, true}) {
    for (const auto& [key, modifiers, caret] : keys) {
      QTest::keyClick(&widget, key, extend ? modifiers | Qt::ShiftModifier : modifiers);
      EXPECT_EQ(view.caret(), caret) << key;
      EXPECT_EQ(view.anchor(), extend ? 27 : caret) << key;
    }
  }
  QTest::keyClick(&widget, Qt::Key_A, control);
  EXPECT_EQ(view.selection(), (TextRange{0, 27}));
}

TEST_F(MessageViewWidgetTest, CopyGivesPlainTextAndTheMenuKnowsWhetherItCan) {
  view.AppendMessage("Aster: caf\xe9", MessageKind::Chat);
  Frame();
  QClipboard* const clipboard = QApplication::clipboard();
  clipboard->setText(QStringLiteral("before"));
  QTest::keyClick(&widget, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard->text(), QStringLiteral("before"));

  for (const bool can_copy : {false, true}) {
    QTest::keyClick(&widget, Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions()[0]->isEnabled(), can_copy);
    menu->actions()[can_copy ? 0 : 1]->trigger();  // Copy, Select All
    menu->close();
  }
  EXPECT_EQ(clipboard->text(), ToQString("Aster: caf\xe9\n"));
}

TEST_F(MessageViewWidgetTest, LettersGrowAndShrinkWhereTheEyeIs) {
  Write(200);
  Lock(true);
  bar().setValue(400);
  const std::string seen = TopLine();
  const auto wheel = [&](int notches) { Wheel(120 * notches, Qt::ControlModifier); };
  const auto key = [&](Qt::Key which) { QTest::keyClick(&widget, which, Qt::ControlModifier); };
  const std::pair<std::function<void()>, int> steps[] = {
      {[&] { key(Qt::Key_Plus); }, 110}, {[&] { key(Qt::Key_Equal); }, 125},
      {[&] { wheel(50); }, 300},         {[&] { wheel(-1); }, 250},
      {[&] { key(Qt::Key_0); }, 100},    {[&] { key(Qt::Key_Minus); }, 90},
      {[&] { wheel(-50); }, 60},         {[&] { key(Qt::Key_0); }, 100}};
  for (const bool at_end : {false, true}) {
    if (at_end) {
      bar().setValue(bar().maximum());
    }
    for (const auto& [step, percent] : steps) {
      step();
      EXPECT_NEAR(widget.canvas().row_height() - 3, (glyphs.row_height() - 3) * percent / 100.0, 3);
      EXPECT_EQ(at_end, (bar().value() == bar().maximum())) << percent;
      EXPECT_TRUE(at_end || TopLine() == seen) << percent << TopLine();
    }
  }
}

TEST_F(MessageViewWidgetTest, FindShowsTheMatchAndMovesNoCaret) {
  Write(300);
  Lock(true);
  view.MoveCaret(40, false);
  QTest::keyClick(&widget, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  auto* const box = widget.findChild<QLineEdit*>(QStringLiteral("txtFind"));
  auto* const outcome = widget.findChild<QLabel*>(QStringLiteral("lblOutcome"));
  ASSERT_EQ(QApplication::focusWidget(), box);
  EXPECT_LT(widget.viewport()->height(), box->mapTo(&widget, QPoint(0, box->height())).y());

  struct Step {
    const char* typed;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* line;  // null: none
  };
  const Qt::KeyboardModifiers none;
  const Step steps[] = {{"LINE 1", Qt::Key_Shift, none, "line 199"},
                        {"", Qt::Key_Return, none, "line 198"},
                        {"", Qt::Key_G, Qt::ControlModifier, "line 197"},
                        {"", Qt::Key_Enter, Qt::KeypadModifier | Qt::ShiftModifier, "line 198"},
                        {"9", Qt::Key_PageUp, none, "line 198"},
                        {"x", Qt::Key_Shift, none, nullptr},
                        {"", Qt::Key_Backspace, none, "line 198"},
                        {"", Qt::Key_Backspace, none, "line 198"},
                        {"1", Qt::Key_Return, none, "line 118"}};
  for (const auto& [typed, key, modifiers, line] : steps) {
    QTest::keyClicks(box, QLatin1String(typed));
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    EXPECT_EQ(IsFoundPainted(), line != nullptr) << box->text().toStdString();
    EXPECT_EQ(box->accessibleDescription(), QLatin1String(line != nullptr ? line : "No match: "));
    EXPECT_EQ(outcome->text(), QLatin1String(line != nullptr ? "" : "No match"));
    EXPECT_EQ(view.insertion_point(), 40U);
  }
  QTest::keyClick(box, Qt::Key_Escape);
  EXPECT_EQ(QApplication::focusWidget(), &widget);
  EXPECT_FALSE(IsFoundPainted());

  QTest::keyClick(&widget, Qt::Key_G, Qt::ControlModifier);
  QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(view.SelectedText(), "line 11");
  EXPECT_FALSE(box->isVisible());
}

TEST_F(MessageViewWidgetTest, AMarkSaysWhereUnseenLinesAreAndLeadsThere) {
  Write(100);
  Lock(true);
  for (const bool below : {false, true}) {
    view.MoveCaret(below ? view.size() : 0, false);
    bar().setValue(400);
    Write(2);
    auto* const mark = widget.findChild<QToolButton*>(QStringLiteral("btnNewLines"));
    ASSERT_TRUE(mark != nullptr && mark->isVisible());
    EXPECT_EQ(mark->text(), QLatin1String(below ? "2 new lines below" : "2 new lines above"));
    EXPECT_EQ(mark->y() > widget.viewport()->height() / 2, below);
    EXPECT_TRUE(widget.viewport()->rect().contains(mark->geometry()));
    if (below) {
      QTest::keyClick(&widget, Qt::Key_J, Qt::ControlModifier);
    } else {
      QTest::mouseClick(mark, Qt::LeftButton);
    }
    EXPECT_FALSE(mark->isVisible());
  }
}

TEST_F(MessageViewWidgetTest, EveryByteIsSeen) {
  for (int byte = 0; byte < 256; ++byte) {
    const auto character = static_cast<char>(byte);
    const bool blank = character == ' ' || character == '\t' || byte == 0xA0;
    EXPECT_EQ(glyphs.GlyphOf(character) == 0, blank) << byte;
    EXPECT_GE(glyphs.advances()[static_cast<std::size_t>(byte)], 1.0F) << byte;
  }
}

}  // namespace
}  // namespace korvanta

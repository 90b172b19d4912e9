#include "ui/message_view/message_view_widget.h"

#include <QAccessible>
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

const Qt::KeyboardModifiers kNone;
const Qt::KeyboardModifiers kShift = Qt::ShiftModifier;
const Qt::KeyboardModifiers kControl = Qt::ControlModifier;

struct MessageViewWidgetTest : testing::Test {
  MessageViewWidgetTest() {
    widget.resize(420, 220);
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&widget));
  }

  /// Lets the frame come that shows what changed.
  void Frame() const {
    const auto* const pending = widget.findChild<QTimer*>(QStringLiteral("frame"));
    ASSERT_TRUE(QTest::qWaitFor([pending] { return !pending->isActive(); }));
  }

  void Write(int lines) {
    const int before = bar.maximum();
    for (; lines > 0; --lines) {
      view.AppendMessage("line " + std::to_string(written++), MessageKind::Status);
    }
    EXPECT_EQ(bar.maximum(), before) << "a flood waits for the next frame";
    Frame();
  }

  void Lock(bool on) {
    options.mnuScrollLock = on;
    view.ScrollLockToggled();
    Frame();
  }

  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  void Wheel(int angle, Qt::KeyboardModifiers modifiers = {}) {
    const QPointF at(50, 50);
    QWheelEvent event(at, port->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(port, &event);
  }

  std::string TopLine() {
    const std::size_t top = widget.position().top();
    return view.text().Bytes(top, LineEnd(view.text(), top));
  }

  /// The left part of the byte at `offset`.
  QPoint PointAt(std::size_t offset) {
    const QRect byte = *widget.canvas().ByteRect(offset, widget.position().top());
    return {byte.left() + 1, byte.center().y()};
  }

  QImage Picture() const { return port->grab().toImage().convertToFormat(QImage::Format_RGB32); }

  /// Whether the ground of a match is in the picture.
  bool IsMatchPainted() const {
    const QImage image = Picture();
    const auto* const pixels = reinterpret_cast<const QRgb*>(image.constBits());
    const auto* const end = pixels + image.width() * image.height();
    return std::find(pixels, end, theme::kFound.rgb()) != end;
  }

  Options options;
  MessageView view{options, 64};
  MessageViewWidget widget{view};
  QWidget* const port = widget.viewport();
  QScrollBar& bar = *widget.verticalScrollBar();
  int written = 0;
};

TEST_F(MessageViewWidgetTest, BarWheelAndKeysScrollByRowsAndPages) {
  Write(200);
  const auto bar_action = [this](QAbstractSlider::SliderAction action) {
    return [this, action] { bar.triggerAction(action); };
  };
  const int page = static_cast<int>(widget.canvas().WholeRows()) - 1;
  const std::pair<std::function<void()>, int> steps[] = {
      {[&] { bar.setValue(17); }, 2},  // inside "line 2", which starts at 16
      {bar_action(QAbstractSlider::SliderSingleStepAdd), 3},
      {bar_action(QAbstractSlider::SliderPageStepAdd), 3 + page},
      {bar_action(QAbstractSlider::SliderPageStepSub), 3},
      {bar_action(QAbstractSlider::SliderSingleStepSub), 2},
      {bar_action(QAbstractSlider::SliderToMinimum), 0},
      {[&] { Wheel(-100); }, 2},
      {[&] { Wheel(-20); }, 3},  // a turn of parts is not lost
      {[&] { Key(Qt::Key_Down, kControl); }, 4},
      {[&] { Key(Qt::Key_Up, kControl); }, 3},
      {[&] { Wheel(120); }, 0},
      {bar_action(QAbstractSlider::SliderToMaximum), 200 - page - 1}};
  for (const auto& [step, line] : steps) {
    step();
    EXPECT_EQ(TopLine(), "line " + std::to_string(line));
    EXPECT_EQ(bar.value(), static_cast<int>(widget.position().top()));
  }
}

TEST_F(MessageViewWidgetTest, TheCaretOfScrollLockIsPainted) {
  Write(2);
  view.MoveCaret(3, false);
  widget.clearFocus();
  const QImage without = Picture();
  Lock(true);
  EXPECT_NE(Picture(), without);
  Lock(false);
  EXPECT_EQ(Picture(), without);
}

TEST_F(MessageViewWidgetTest, MouseSelectsAndScrollsBeyondAnEdge) {
  view.ShowText("Aster: hello there\nBrisk: second" + std::string(50, '\n'));
  Frame();
  QTest::mouseClick(port, Qt::LeftButton, {}, PointAt(7));
  QTest::mouseClick(port, Qt::RightButton, {}, PointAt(20));
  QTest::mouseClick(port, Qt::LeftButton, kShift, PointAt(12));
  EXPECT_EQ(view.SelectedText(), "hello");
  QTest::mouseDClick(port, Qt::LeftButton, {}, PointAt(8));
  EXPECT_EQ(view.SelectedText(), "hello");
  QTest::mousePress(port, Qt::LeftButton, {}, PointAt(8));
  EXPECT_EQ(view.SelectedText(), "Aster: hello there\n");
  QTest::mouseMove(port, PointAt(24));
  EXPECT_EQ(view.SelectedText(), "Aster: hello there\nBrisk: second\n");
  QTest::mouseMove(port, {10, port->height() + 5});
  EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() == bar.maximum(); }));
  QTest::mouseRelease(port, Qt::LeftButton, {}, {10, port->height() + 5});
  EXPECT_EQ(view.selection(), (TextRange{0, view.size()}));
}

TEST_F(MessageViewWidgetTest, TheDesktopsKeysMoveAndExtend) {
  view.ShowText("one two\r\none two\r\none two\r\n");
  Frame();
  const std::tuple<Qt::Key, Qt::KeyboardModifiers, std::size_t> keys[] = {
      {Qt::Key_Home, kControl, 0},   {Qt::Key_Right, kNone, 1},   {Qt::Key_Down, kNone, 10},
      {Qt::Key_Right, kControl, 13}, {Qt::Key_Left, kControl, 9}, {Qt::Key_End, kNone, 16},
      {Qt::Key_Left, kNone, 15},     {Qt::Key_Home, kNone, 9},    {Qt::Key_Up, kNone, 0},
      {Qt::Key_PageDown, kNone, 27}, {Qt::Key_PageUp, kNone, 0},  {Qt::Key_End, kControl, 27}};
  for (const bool extend : {false, true}) {
    for (const auto& [key, modifiers, caret] : keys) {
      Key(key, extend ? modifiers | kShift : modifiers);
      EXPECT_EQ(view.caret(), caret) << key;
      EXPECT_EQ(view.anchor(), extend ? 27 : caret) << key;
    }
  }
  Key(Qt::Key_A, kControl);
  EXPECT_EQ(view.selection(), (TextRange{0, 27}));
}

TEST_F(MessageViewWidgetTest, CopyGivesPlainTextAndTheMenuKnowsWhetherItCan) {
  view.AppendMessage("Aster: caf\xe9", MessageKind::Chat);
  QClipboard* const clipboard = QApplication::clipboard();
  clipboard->setText(QStringLiteral("before"));
  Key(Qt::Key_C, kControl);
  EXPECT_EQ(clipboard->text(), QStringLiteral("before"));
  for (const bool can_copy : {false, true}) {
    Key(Qt::Key_F10, kShift);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    EXPECT_EQ(menu->actions()[0]->isEnabled(), can_copy);
    QStringList captions;
    for (const QAction* action : menu->actions()) {
      captions += action->text().remove(QLatin1Char('&'));
    }
    EXPECT_EQ(ToBytes(captions.join(QLatin1Char('/'))),
              "Copy/Select All//Find/Find Older/Find Newer/Show New Lines/Larger Text/Smaller Text/"
              "Normal Size");
    menu->actions()[can_copy ? 0 : 1]->trigger();  // Copy, Select All
    menu->close();
  }
  EXPECT_EQ(clipboard->text(), ToQString("Aster: caf\xe9\n"));
}

TEST_F(MessageViewWidgetTest, LettersGrowAndShrinkWhereTheEyeIs) {
  Write(200);
  Lock(true);
  const int normal = widget.canvas().row_height() - 3;
  const std::pair<std::function<void()>, int> steps[] = {
      {[&] { Key(Qt::Key_Plus, kControl); }, 110}, {[&] { Key(Qt::Key_Equal, kControl); }, 125},
      {[&] { Wheel(6000, kControl); }, 300},       {[&] { Wheel(-120, kControl); }, 250},
      {[&] { Key(Qt::Key_0, kControl); }, 100},    {[&] { Key(Qt::Key_Minus, kControl); }, 90},
      {[&] { Wheel(-6000, kControl); }, 60},       {[&] { Key(Qt::Key_0, kControl); }, 100}};
  for (const bool at_end : {false, true}) {
    bar.setValue(at_end ? bar.maximum() : 400);
    const std::string seen = TopLine();
    for (const auto& [step, percent] : steps) {
      step();
      EXPECT_NEAR(widget.canvas().row_height() - 3, normal * percent / 100.0, 3);
      EXPECT_TRUE(at_end ? bar.value() == bar.maximum() : TopLine() == seen) << percent;
    }
  }
}

TEST_F(MessageViewWidgetTest, FindShowsTheMatchAndMovesNoCaret) {
  Write(300);
  Lock(true);
  view.MoveCaret(40, false);
  Key(Qt::Key_F, kControl | kShift);
  auto* const box = widget.findChild<QLineEdit*>(QStringLiteral("txtFind"));
  auto* const outcome = widget.findChild<QLabel*>(QStringLiteral("lblOutcome"));
  ASSERT_EQ(QApplication::focusWidget(), box);
  EXPECT_LT(port->height(), box->mapTo(&widget, QPoint(0, box->height())).y());
  QString captions;
  for (const auto* button : box->parentWidget()->findChildren<QToolButton*>()) {
    captions += button->text() + QLatin1Char('/');
  }
  EXPECT_EQ(captions, QStringLiteral("Older/Newer/Close/"));
  const struct {
    const char* typed;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* line;  // null: none
  } steps[] = {{"LINE 1", Qt::Key_Shift, kNone, "line 199"},
               {"", Qt::Key_Return, kNone, "line 198"},
               {"", Qt::Key_G, kControl, "line 197"},
               {"", Qt::Key_Enter, Qt::KeypadModifier | kShift, "line 198"},
               {"9", Qt::Key_PageUp, kNone, "line 198"},
               {"x", Qt::Key_Shift, kNone, nullptr},
               {"", Qt::Key_Backspace, kNone, "line 198"},
               {"", Qt::Key_Tab, kNone, "line 198"},
               {"", Qt::Key_Return, kNone, "line 197"},
               {"", Qt::Key_Tab, kNone, "line 197"},
               {"", Qt::Key_Enter, Qt::KeypadModifier, "line 198"}};
  for (const auto& [typed, key, modifiers, line] : steps) {
    QTest::keyClicks(box, QLatin1String(typed));
    Key(key, modifiers);
    EXPECT_EQ(IsMatchPainted(), line != nullptr) << box->text().toStdString();
    EXPECT_EQ(box->accessibleDescription(), QLatin1String(line != nullptr ? line : "No match: "));
    EXPECT_EQ(outcome->text(), QLatin1String(line != nullptr ? "" : "No match"));
    EXPECT_EQ(view.insertion_point(), 40U);
  }
  Key(Qt::Key_Tab);
  Key(Qt::Key_Return);  // on "Close"
  EXPECT_EQ(QApplication::focusWidget(), &widget);
  EXPECT_FALSE(IsMatchPainted());
  Key(Qt::Key_G, kControl);
  Key(Qt::Key_Return, kControl);
  EXPECT_EQ(view.SelectedText(), "line 19");
  EXPECT_FALSE(box->isVisible());
}

TEST_F(MessageViewWidgetTest, AMarkSaysWhereUnseenLinesAreAndLeadsThere) {
  Write(100);
  Lock(true);
  for (const bool below : {false, true}) {
    view.MoveCaret(below ? view.size() : 0, false);
    bar.setValue(400);
    Write(2);
    auto* const mark = widget.findChild<QToolButton*>(QStringLiteral("btnNewLines"));
    ASSERT_NE(mark, nullptr);
    EXPECT_EQ(mark->text(), QLatin1String(below ? "2 new lines below" : "2 new lines above"));
    EXPECT_EQ(mark->y() > port->height() / 2, below);
    EXPECT_TRUE(mark->isVisible() && port->rect().contains(mark->geometry()));
    below ? Key(Qt::Key_J, kControl) : QTest::mouseClick(mark, Qt::LeftButton);
    EXPECT_FALSE(mark->isVisible());
  }
}

TEST_F(MessageViewWidgetTest, EveryByteIsSeen) {
  const GlyphTable glyphs(widget.font());
  EXPECT_NE(glyphs.GlyphOf('a'), glyphs.GlyphOf('b'));
  for (int byte = 0; byte < 256; ++byte) {
    const auto character = static_cast<char>(byte);
    const bool blank = character == ' ' || character == '\t' || byte == 0xA0;
    EXPECT_EQ(glyphs.GlyphOf(character) == 0, blank) << byte;
    EXPECT_GE(glyphs.advances()[static_cast<std::size_t>(byte)], 1.0F) << byte;
  }
}

TEST_F(MessageViewWidgetTest, AssistiveProgramsFindTextCaretPlacesAndColours) {
  view.AppendMessage("Aster: hail there", MessageKind::Chat);  // breaks at 17 and 27
  view.AppendMessage("caf\xe9 100", MessageKind::Status);
  QAccessibleInterface& element = *QAccessible::queryAccessibleInterface(&widget);
  QAccessibleTextInterface& text = *element.textInterface();
  EXPECT_EQ(element.role(), QAccessible::EditableText);
  EXPECT_TRUE(element.state().readOnly);
  EXPECT_EQ(text.characterCount(), 29);
  int from = 0;
  int to = 0;
  const struct {
    QAccessible::TextBoundaryType unit;
    int offset;
    const char16_t *before, *at, *after;
  } cases[] = {
      {QAccessible::CharBoundary, 17, u"e", u"\r\n", u"c"},
      {QAccessible::WordBoundary, 8, u" ", u"hail", u" "},
      {QAccessible::LineBoundary, 3, u"", u"Aster: hail there\r\n", u"caf\u00e9 100\r\n"},
      {QAccessible::ParagraphBoundary, 20, u"Aster: hail there\r\n", u"caf\u00e9 100\r\n", u""},
      {QAccessible::LineBoundary, -1, u"caf\u00e9 100\r\n", u"", u""}};
  for (const auto& [unit, offset, before, at, after] : cases) {
    EXPECT_EQ(text.textBeforeOffset(offset, unit, &from, &to), QString::fromUtf16(before));
    EXPECT_EQ(text.textAfterOffset(offset, unit, &from, &to), QString::fromUtf16(after));
    EXPECT_EQ(text.textAtOffset(offset, unit, &from, &to), QString::fromUtf16(at)) << offset;
    EXPECT_EQ(text.text(from, to), QString::fromUtf16(at)) << offset;
  }

  text.setSelection(0, 7, 11);
  EXPECT_EQ(view.SelectedText(), "hail");
  text.selection(0, &from, &to);
  EXPECT_EQ((std::pair{from, to}), (std::pair{7, 11}));
  text.setCursorPosition(3);
  EXPECT_EQ(text.cursorPosition(), 3);
  EXPECT_EQ(text.selectionCount(), 0);
  for (const int offset : {0, 8, 22}) {
    const QRect place = text.characterRect(offset);
    EXPECT_TRUE(element.rect().contains(place)) << offset;
    EXPECT_EQ(text.offsetAtPoint(place.center()), offset);
  }
  EXPECT_EQ(text.attributes(2, &from, &to), QStringLiteral("color:rgb(0,0,128);"));
  EXPECT_EQ((std::pair{from, to}), (std::pair{0, 6}));
  EXPECT_EQ(text.attributes(6, &from, &to), QStringLiteral("color:rgb(64,64,192);"));
  Write(100);
  text.scrollToSubstring(0, 500);
  EXPECT_TRUE(text.characterRect(800).isNull());
  EXPECT_FALSE(text.characterRect(0).isNull());
}

}  // namespace
}  // namespace korvanta

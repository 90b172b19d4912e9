#include "ui/message_view/message_view_accessible.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

#include "ui/message_view/message_view_widget.h"

namespace korvanta {
namespace {

class MessageViewAccessibleTest : public testing::Test {
 protected:
  MessageViewAccessibleTest() {
    widget_.resize(420, 220);
    widget_.show();
    view_.AppendMessage("Aster: hail there", MessageKind::Chat);  // breaks at 17 and 27
    view_.AppendMessage("caf\xe9 100", MessageKind::Status);
  }
  QAccessibleInterface& Element() const { return *QAccessible::queryAccessibleInterface(&widget_); }
  QAccessibleTextInterface& Text() const { return *Element().textInterface(); }

  Options options_;
  MessageView view_{options_, 64};
  mutable MessageViewWidget widget_{view_};
  int from_ = 0;
  int to_ = 0;
};

TEST_F(MessageViewAccessibleTest, ReadsByUnit) {
  EXPECT_EQ(Element().text(QAccessible::Name), QStringLiteral("Messages"));
  EXPECT_EQ(Element().role(), QAccessible::EditableText);
  EXPECT_TRUE(Element().state().readOnly);
  EXPECT_EQ(Text().characterCount(), 29);
  EXPECT_EQ(Text().text(7, 23), QStringLiteral("hail there\r\ncaf\u00e9"));
  struct Case {
    QAccessible::TextBoundaryType unit;
    int offset;
    const char16_t* before;
    const char16_t* at;
    const char16_t* after;
  };
  const Case cases[] = {
      {QAccessible::CharBoundary, 22, u"f", u"\u00e9", u" "},
      {QAccessible::CharBoundary, 17, u"e", u"\r\n", u"c"},
      {QAccessible::WordBoundary, 8, u" ", u"hail", u" "},
      {QAccessible::LineBoundary, 3, u"", u"Aster: hail there\r\n", u"caf\u00e9 100\r\n"},
      {QAccessible::ParagraphBoundary, 20, u"Aster: hail there\r\n", u"caf\u00e9 100\r\n", u""},
      {QAccessible::NoBoundary, 0, u"", u"Aster: hail there\r\n", u"caf\u00e9 100\r\n"},
      {QAccessible::LineBoundary, -1, u"caf\u00e9 100\r\n", u"", u""}};
  for (const auto& [unit, offset, before, at, after] : cases) {
    EXPECT_EQ(Text().textBeforeOffset(offset, unit, &from_, &to_), QString::fromUtf16(before));
    EXPECT_EQ(Text().textAfterOffset(offset, unit, &from_, &to_), QString::fromUtf16(after));
    EXPECT_EQ(Text().textAtOffset(offset, unit, &from_, &to_), QString::fromUtf16(at)) << offset;
    EXPECT_EQ(Text().text(from_, to_), QString::fromUtf16(at)) << offset;
  }
}

TEST_F(MessageViewAccessibleTest, CaretSelectionPlacesAndColours) {
  Text().setSelection(0, 7, 11);
  EXPECT_EQ(view_.SelectedText(), "hail");
  Text().selection(0, &from_, &to_);
  EXPECT_EQ((std::pair{from_, to_}), (std::pair{7, 11}));
  Text().setCursorPosition(3);
  EXPECT_EQ(Text().cursorPosition(), 3);
  EXPECT_EQ(Text().selectionCount(), 0);

  for (const int offset : {0, 8, 22}) {
    const QRect place = Text().characterRect(offset);
    EXPECT_TRUE(Element().rect().contains(place)) << offset;
    EXPECT_EQ(Text().offsetAtPoint(place.center()), offset);
  }
  EXPECT_EQ(Text().attributes(2, &from_, &to_), QStringLiteral("color:rgb(0,0,128);"));
  EXPECT_EQ((std::pair{from_, to_}), (std::pair{0, 6}));
  EXPECT_EQ(Text().attributes(6, &from_, &to_), QStringLiteral("color:rgb(64,64,192);"));

  for (int line = 0; line < 100; ++line) {
    view_.AppendMessage("more", MessageKind::Status);
  }
  Text().scrollToSubstring(0, 5);
  EXPECT_TRUE(Text().characterRect(500).isNull());
  EXPECT_FALSE(Text().characterRect(0).isNull());
}

}  // namespace
}  // namespace korvanta

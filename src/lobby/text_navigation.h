/// Navigation in a long text: lines, words and caret positions. Used by the message view and
/// everything that moves in it.
///
/// A line ends with "\r\n", a lone "\r" or a lone "\n"; the text after the last break is a line
/// too, perhaps an empty one. No caret position is inside a "\r\n". Every offset is in bytes and at
/// most the size of the text.
#pragma once

#include <cstddef>

#include "lobby/coloured_text.h"

namespace korvanta {

/// From `from` up to `to`.
struct TextRange {
  std::size_t from;
  std::size_t to;
  bool empty() const { return from == to; }
  bool operator==(const TextRange&) const = default;
};

constexpr bool IsLineBreak(char byte) { return byte == '\r' || byte == '\n'; }

/// The nearest caret position at or before `offset`, which may be beyond the end.
std::size_t CaretPosition(const ColouredText& text, std::size_t offset);
std::size_t NextCaretPosition(const ColouredText& text, std::size_t offset);
std::size_t PreviousCaretPosition(const ColouredText& text, std::size_t offset);

std::size_t LineStart(const ColouredText& text, std::size_t offset);

/// Offset of the line's break, or the end of the text.
std::size_t LineEnd(const ColouredText& text, std::size_t offset);

/// Start of the next line; the end of the text if there is none.
std::size_t NextLine(const ColouredText& text, std::size_t offset);

/// The line that contains `offset`, with its break.
TextRange LineAt(const ColouredText& text, std::size_t offset);

/// The run of letters and digits, of spaces, or of other characters that contains `offset`; at the
/// end of a line, the run before it. Empty on an empty line.
TextRange WordAt(const ColouredText& text, std::size_t offset);

/// Start of the next or previous word; the ends of a line count as words.
std::size_t NextWord(const ColouredText& text, std::size_t offset);
std::size_t PreviousWord(const ColouredText& text, std::size_t offset);

}  // namespace korvanta

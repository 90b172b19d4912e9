/// Navigation in a long text: its lines, its words and the places where a caret may stand. The
/// message view and all that moves in it use this.
///
/// A line ends with "\r\n", a lone "\r" or a lone "\n"; the text behind the last break is a line
/// too, perhaps an empty one. A caret never stands inside a "\r\n". Every offset is in bytes and at
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

/// The nearest place for a caret at or before `offset`, which may lie beyond the end.
std::size_t CaretPlace(const ColouredText& text, std::size_t offset);
std::size_t NextCaretPlace(const ColouredText& text, std::size_t offset);
std::size_t PreviousCaretPlace(const ColouredText& text, std::size_t offset);

std::size_t LineStart(const ColouredText& text, std::size_t offset);

/// Where the break of the line lies, or the end of the text.
std::size_t LineEnd(const ColouredText& text, std::size_t offset);

/// Start of the line after; the end of the text when there is none.
std::size_t NextLine(const ColouredText& text, std::size_t offset);

/// The line around `offset` with its break.
TextRange LineAt(const ColouredText& text, std::size_t offset);

/// The stretch of letters and digits, of spaces, or of other characters that `offset` lies in;
/// at the end of a line, the one before it. Empty on an empty line.
TextRange WordAt(const ColouredText& text, std::size_t offset);

/// Start of the next or previous word; the ends of a line count as words.
std::size_t NextWord(const ColouredText& text, std::size_t offset);
std::size_t PreviousWord(const ColouredText& text, std::size_t offset);

}  // namespace korvanta

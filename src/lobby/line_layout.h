/// Wrapping of bytes into rows by 256 advance widths. There is no shaping: the width of a text is
/// the sum of its bytes' advances, in measuring and in painting alike.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "lobby/text_navigation.h"

namespace korvanta {

/// Width of each byte in logical pixels, at least 1.
using Advances = std::array<float, 256>;

float WidthOf(std::string_view bytes, const Advances& advances);

/// Number of leading bytes to the left of `x`. The byte at `x` counts if `x` is beyond this share
/// of its width, from 0 to 1.
std::size_t BytesLeftOf(float x, std::string_view bytes, const Advances& advances, float share);

/// One row of text. Where it ends depends on nothing before `start`.
struct Row {
  std::size_t start;
  std::size_t end;   ///< after the last byte to paint
  std::size_t next;  ///< start of the next row; beyond `end` if a line break is between them
  bool EndsLine() const { return next > end; }
  bool operator==(const Row&) const = default;
};

/// The row that begins with `bytes`. It ends at a line break, after the last space before a word
/// that does not fit, or inside a word longer than the row. One space that does not fit may hang
/// over the edge.
Row WrapRow(std::string_view bytes, const Advances& advances, float width);

/// How a distance from the left edge of a row is resolved: `Caret` to the nearest caret position in
/// the row, `Edge` likewise but including the end of a wrapped row, which is the start of the next,
/// `Byte` to the byte at that distance.
enum class Aim { Caret, Edge, Byte };

/// The rows of a text at one width, laid out on demand. Finding the start of a row looks back to
/// the start of its line and no further.
class TextRows {
 public:
  /// The references must outlive it.
  TextRows(const ColouredText& text, const Advances& advances) : text_(text), advances_(advances) {
    SetWidth(0);
  }

  /// In logical pixels; a row has at least one byte.
  void SetWidth(float width);

  /// To be called after the advances have changed.
  void AdvancesChanged() { SetWidth(width_); }

  /// The row at `start`, which must be the start of a row.
  Row At(std::size_t start) const;

  /// Start of the row that contains `offset`.
  std::size_t StartOf(std::size_t offset) const;

  /// Start of the row `count` rows up or down; of the first or last row if there are not as many.
  std::size_t Up(std::size_t start, std::size_t count) const;
  std::size_t Down(std::size_t start, std::size_t count) const;

  /// The offset at the distance `x` from the left edge of the row that starts at `start`, limited
  /// to the row.
  std::size_t OffsetInRow(std::size_t start, float x, Aim aim) const;

  /// Distance of `offset` from the left edge of its row.
  float XOf(std::size_t offset) const;

  /// Whether no row follows. A final line break is followed by an empty row.
  bool IsLast(const Row& row) const { return row.next == text_.size() && !row.EndsLine(); }

 private:
  template <typename Visitor>
  void Walk(std::size_t start, Visitor visit) const;

  const ColouredText& text_;
  const Advances& advances_;
  float width_ = 0;
  std::size_t longest_ = 0;  // no row depends on more bytes than this
};

}  // namespace korvanta

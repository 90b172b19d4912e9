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

/// Number of the leading bytes that lie left of `x`. The byte under it counts when `x` is beyond
/// this share of it, from 0 to 1.
std::size_t BytesLeftOf(float x, std::string_view bytes, const Advances& advances, float share);

/// One row of text. Where it ends depends on nothing before `start`.
struct Row {
  std::size_t start;
  std::size_t end;   ///< behind the last byte to paint
  std::size_t next;  ///< start of the next row; beyond `end` when a line break lies between
  bool EndsLine() const { return next > end; }
  bool operator==(const Row&) const = default;
};

/// The row that begins with `bytes`. It ends at a line break, behind the last space that is
/// followed by a word that does not fit, or inside a word longer than the row. A space that does
/// not fit hangs over the edge, one a row.
Row WrapRow(std::string_view bytes, const Advances& advances, float width);

/// What a distance in a row stands for. `Caret` is the nearest place for a caret in the row; `Edge`
/// is the same, with the end of a wrapped row, the start of the next, within reach; `Byte` is the
/// byte that is there.
enum class Aim { Caret, Edge, Byte };

/// The rows of a text at one width. Only what is asked for is laid out; finding the start of a row
/// looks back to the start of its line and no further.
class TextRows {
 public:
  /// The references outlive this.
  TextRows(const ColouredText& text, const Advances& advances) : text_(text), advances_(advances) {
    SetWidth(0);
  }

  /// In logical pixels; at least one byte goes into a row.
  void SetWidth(float width);

  /// Call it after the advances have changed.
  void AdvancesChanged() { SetWidth(width_); }

  /// The row that starts at `start`, itself a row's start.
  Row At(std::size_t start) const;

  /// Start of the row around `offset`.
  std::size_t StartOf(std::size_t offset) const;

  /// Start of the row `count` rows up or down, or of the first or last row.
  std::size_t Up(std::size_t start, std::size_t count) const;
  std::size_t Down(std::size_t start, std::size_t count) const;

  /// What is at that distance from the left edge of the row that starts at `start`; beyond an end
  /// of the row, the end is meant.
  std::size_t OffsetInRow(std::size_t start, float x, Aim aim) const;

  /// Distance of `offset` from the left edge of its row.
  float XOf(std::size_t offset) const;

  /// No row follows it. Behind a final line break stands an empty row.
  bool IsLast(const Row& row) const { return row.next == text_.size() && !row.EndsLine(); }

 private:
  template <typename Visitor>
  void Walk(std::size_t start, Visitor visit) const;

  const ColouredText& text_;
  const Advances& advances_;
  float width_ = 0;
  std::size_t longest_ = 0;  // bytes that decide any row
};

}  // namespace korvanta

#include "lobby/line_layout.h"

#include <algorithm>
#include <vector>

namespace korvanta {
namespace {

/// Bytes that a walk over many rows reads at a time.
constexpr std::size_t kBlock = std::size_t{16} * 1024;

float AdvanceOf(char byte, const Advances& advances) {
  return advances[static_cast<unsigned char>(byte)];
}

}  // namespace

float WidthOf(std::string_view bytes, const Advances& advances) {
  float width = 0;
  for (const char byte : bytes) {
    width += AdvanceOf(byte, advances);
  }
  return width;
}

std::size_t BytesLeftOf(float x, std::string_view bytes, const Advances& advances, float share) {
  std::size_t count = 0;
  for (const char byte : bytes) {
    const float advance = AdvanceOf(byte, advances);
    if (x < advance * share) {
      break;
    }
    x -= advance;
    ++count;
  }
  return count;
}

Row WrapRow(std::string_view bytes, const Advances& advances, float width) {
  float x = 0;
  std::size_t word = 0;  // start of the current word
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char byte = bytes[at];
    if (IsLineBreak(byte)) {
      const bool pair = byte == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n';
      return {0, at, at + (pair ? 2 : 1)};
    }
    x += AdvanceOf(byte, advances);
    const bool space = byte == ' ' || byte == '\t';
    if (space) {
      word = at + 1;
    }
    if (x > width) {
      const std::size_t end = word > 0 ? word : std::max<std::size_t>(at, 1);
      // A break directly after belongs to this row: it must not make an empty one.
      if (end == bytes.size() || !IsLineBreak(bytes[end])) {
        return {0, end, end};
      }
    }
  }
  return {0, bytes.size(), bytes.size()};
}

void TextRows::SetWidth(float width) {
  width_ = width;
  const float narrowest = *std::min_element(advances_.begin(), advances_.end());
  // What fits, the byte that does not, and a line break after it.
  longest_ = static_cast<std::size_t>(std::max(width, 0.0F) / narrowest) + 4;
}

/// Visits the rows from `start` on, down to the last one or the first for which `visit(row)` is
/// false.
template <typename Visitor>
void TextRows::Walk(std::size_t start, Visitor visit) const {
  std::string block;
  std::size_t block_start = start;
  std::size_t ahead = longest_;
  for (;;) {
    const std::size_t block_end = block_start + block.size();
    if (block_end - start < longest_ && block_end < text_.size()) {
      block = text_.Bytes(start, std::min(start + ahead, text_.size()));
      block_start = start;
      ahead = std::max(longest_, kBlock);
    }
    const std::string_view rest = std::string_view(block).substr(start - block_start);
    const Row wrapped = WrapRow(rest, advances_, width_);
    const Row row{start, start + wrapped.end, start + wrapped.next};
    if (!visit(row) || IsLast(row)) {
      return;
    }
    start = row.next;
  }
}

Row TextRows::At(std::size_t start) const {
  Row found{};
  Walk(start, [&found](const Row& row) {
    found = row;
    return false;
  });
  return found;
}

std::size_t TextRows::StartOf(std::size_t offset) const {
  std::size_t start = 0;
  Walk(LineStart(text_, offset), [&start, offset](const Row& row) {
    start = row.start;
    return row.next <= offset;
  });
  return start;
}

std::size_t TextRows::Up(std::size_t start, std::size_t count) const {
  while (count > 0 && start > 0) {
    std::vector<std::size_t> above;
    Walk(LineStart(text_, PreviousCaretPosition(text_, start)), [&above, start](const Row& row) {
      above.push_back(row.start);
      return row.next < start;
    });
    const std::size_t steps = std::min(count, above.size());
    start = above[above.size() - steps];
    count -= steps;
  }
  return start;
}

std::size_t TextRows::Down(std::size_t start, std::size_t count) const {
  Walk(start, [&start, &count](const Row& row) {
    start = row.start;
    return count-- > 0;
  });
  return start;
}

std::size_t TextRows::OffsetInRow(std::size_t start, float x, Aim aim) const {
  const Row row = At(start);
  const float share = aim == Aim::Byte ? 1.0F : 0.5F;
  const std::size_t offset =
      start + BytesLeftOf(x, text_.Bytes(row.start, row.end), advances_, share);
  const bool on_next_row = offset == row.next && !IsLast(row);
  return on_next_row && aim != Aim::Edge ? PreviousCaretPosition(text_, offset) : offset;
}

float TextRows::XOf(std::size_t offset) const {
  return WidthOf(text_.Bytes(StartOf(offset), offset), advances_);
}

}  // namespace korvanta

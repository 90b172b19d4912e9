/// The rules of the message view, written down once more in the slowest and plainest way: what
/// random tests and the fuzzer hold the view against.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "lobby/message_view.h"

namespace korvanta::fakes {

/// The colours of a text, one letter a byte: the role's number as 'a', 'b', ….
inline char LetterOf(ColourRole role) { return static_cast<char>('a' + static_cast<int>(role)); }

inline std::string Letters(const Excerpt& excerpt) {
  std::string letters;
  for (const ColourRun& run : excerpt.runs) {
    letters.resize(run.end, LetterOf(run.role));
  }
  return letters;
}

struct PlainMessageView {
  std::string bytes;
  std::string letters;
  std::size_t anchor = 0;
  std::size_t caret = 0;

  void Insert(std::string_view text, ColourRole role) {
    if (text.empty()) {
      return;
    }
    const auto [from, to] = std::minmax(anchor, caret);
    std::fill(letters.begin() + static_cast<std::ptrdiff_t>(from),
              letters.begin() + static_cast<std::ptrdiff_t>(to), LetterOf(role));
    bytes.insert(to, text);
    letters.insert(to, text.size(), LetterOf(role));
    anchor = caret = to + text.size();
  }

  void Append(const std::string& text, MessageKind kind, bool locked) {
    if (!locked) {
      anchor = caret = bytes.size();
    }
    const std::size_t colon = text.find(':');
    const std::string head = colon == std::string::npos ? "" : text.substr(0, colon + 1);
    Insert(head, ColoursOf(kind).first);
    Insert(text.substr(head.size()) + "\r\n", ColoursOf(kind).second);
  }

  void Select(std::size_t new_anchor, std::size_t new_caret) {
    anchor = Place(new_anchor);
    caret = Place(new_caret);
  }

  bool InsideBreak(std::size_t offset) const {
    return offset > 0 && offset < bytes.size() && bytes[offset - 1] == '\r' &&
           bytes[offset] == '\n';
  }

  std::size_t Place(std::size_t offset) const {
    offset = std::min(offset, bytes.size());
    return InsideBreak(offset) ? offset - 1 : offset;
  }

  TextRange Line(std::size_t offset) const {
    TextRange line{Place(offset), Place(offset)};
    while (line.from > 0 && !IsLineBreak(bytes[line.from - 1])) {
      --line.from;
    }
    while (line.to < bytes.size() && !IsLineBreak(bytes[line.to])) {
      ++line.to;
    }
    if (line.to < bytes.size()) {
      line.to += InsideBreak(line.to + 1) ? 2 : 1;
    }
    return line;
  }

  std::string SelectedText() const {
    const auto [from, to] = std::minmax(anchor, caret);
    std::string text;
    for (std::size_t i = from; i < to; ++i) {
      if (bytes[i] == '\n' && i > from && bytes[i - 1] == '\r') {
        continue;  // the break is copied already
      }
      text += bytes[i] == '\r' ? '\n' : bytes[i];
    }
    return text;
  }
};

}  // namespace korvanta::fakes

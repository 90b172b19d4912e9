/// The message view beside its rules written down in the slowest and plainest way: the same events
/// happen to both. The fuzz target and a random test play against it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/input.h"
#include "lobby/message_view.h"

namespace korvanta::fuzz {

struct PlainMessageView {
  std::string bytes;
  std::string letters;  ///< the colour of each byte: its role's number as 'a', 'b', …
  std::size_t anchor = 0;
  std::size_t caret = 0;

  static char LetterOf(ColourRole role) { return static_cast<char>('a' + static_cast<int>(role)); }

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

class MessageViewOracle {
 public:
  explicit MessageViewOracle(std::size_t chunk_size) : view_(options_, chunk_size) {
    view_.on_changed = [this](const MessageView::Change& change) { Follow(change); };
  }

  /// Lets the event happen to both, then checks that they agree.
  void Act(Event event) {
    switch (event.letter) {
      case 'S':
        Select(event);
        break;
      case 'M':
        Move(event);
        break;
      case 'K':
        options_.mnuScrollLock = !options_.mnuScrollLock;
        view_.ScrollLockToggled();
        break;
      case 'C':
        plain_ = {};
        view_.Clear();
        break;
      default:
        const auto kind = static_cast<MessageKind>(event.letter % 9);
        plain_.Append(std::string(event.text), kind, options_.mnuScrollLock);
        view_.AppendMessage(event.text, kind);
    }
    CheckAll();
  }

 private:
  void Select(Event event) {
    const std::size_t anchor = Scaled(event.TakeNumber());
    const std::size_t caret = Scaled(event.TakeNumber());
    plain_.Select(anchor, caret);
    view_.Select(anchor, caret);
  }

  void Move(Event event) {
    using Step = std::size_t (*)(const ColouredText&, std::size_t);
    constexpr Step kSteps[] = {
        NextCaretPosition, PreviousCaretPosition, NextWord, PreviousWord, LineStart, LineEnd,
        NextLine};
    const Step step = kSteps[event.TakeNumber() % std::size(kSteps)];
    const std::size_t to = step(view_.text(), view_.caret());
    const bool extends = event.TakeNumber() % 2 == 1;
    plain_.Select(extends ? plain_.anchor : to, to);
    view_.MoveCaret(to, extends);
  }

  /// Of a byte, a place in the text or a little behind it.
  std::size_t Scaled(std::size_t byte) const { return byte * (view_.size() + 3) / 255; }

  /// Keeps the text, the selection and Scroll Lock as the widget does, by what it is notified of.
  void Follow(const MessageView::Change& change) {
    using What = MessageView::Change::What;
    followed_ends_ = {view_.anchor(), view_.caret()};
    if (change.what == What::ScrollLock) {
      followed_lock_ = options_.mnuScrollLock;
    } else if (change.what == What::Cleared) {
      followed_.clear();
    } else if (change.what == What::Inserted) {
      const std::size_t end = change.offset + change.length;
      Check(end <= view_.size(), "new text lies inside the text");
      followed_.insert(change.offset, view_.text().Bytes(change.offset, end));
    }
  }

  void CheckAll() {
    const ColouredText& text = view_.text();
    const std::size_t size = plain_.bytes.size();
    Check(view_.size() == size && followed_ == plain_.bytes, "the length, and every change");
    const std::pair<std::size_t, std::size_t> ends(plain_.anchor, plain_.caret);
    Check(std::pair(view_.anchor(), view_.caret()) == ends, "the selection");
    Check(followed_ends_ == ends && followed_lock_ == options_.mnuScrollLock, "every notice");
    Check(view_.SelectedText() == plain_.SelectedText(), "the copy of the selection");
    CheckPart(0, size);
    const auto [from, to] = std::minmax(plain_.anchor, plain_.caret);
    CheckPart(from, to);
    for (const std::size_t at : {from, to}) {
      const TextRange line = plain_.Line(at);
      Check(LineAt(text, at) == line && LineStart(text, at) == line.from &&
                NextLine(text, at) == line.to,
            "the line");
      const TextRange word = WordAt(text, at);
      Check(line.from <= word.from && word.from <= at && at <= word.to && word.to <= line.to,
            "a word lies in its line");
      CheckSteps(at);
    }
  }

  void CheckPart(std::size_t from, std::size_t to) {
    view_.text().Read(from, to, part_);
    Check(part_.bytes == plain_.bytes.substr(from, to - from), "the text");
    std::string letters;
    for (std::size_t run = 0; run < part_.runs.size(); ++run) {
      const auto [end, role] = part_.runs[run];
      Check(end > letters.size(), "no colour run is empty");
      Check(run == 0 || part_.runs[run - 1].role != role, "neighbours differ in colour");
      letters.resize(end, PlainMessageView::LetterOf(role));
    }
    Check(letters == plain_.letters.substr(from, to - from), "the colours");
    Check(view_.text().Bytes(from, to) == part_.bytes, "the text without its colours");
  }

  /// Each step leads on, to a place where a caret may stand.
  void CheckSteps(std::size_t at) const {
    const ColouredText& text = view_.text();
    const std::size_t size = view_.size();
    for (const std::size_t next : {NextCaretPosition(text, at), NextWord(text, at)}) {
      Check(at == size ? next == size : next > at && plain_.Place(next) == next, "a step forward");
    }
    for (const std::size_t before : {PreviousCaretPosition(text, at), PreviousWord(text, at)}) {
      Check(at == 0 ? before == 0 : before < at && plain_.Place(before) == before, "a step back");
    }
  }

  Options options_;
  MessageView view_;
  PlainMessageView plain_;
  std::string followed_;
  std::pair<std::size_t, std::size_t> followed_ends_;
  bool followed_lock_ = false;
  Excerpt part_;
};

}  // namespace korvanta::fuzz

/// Fuzz target: the message view against the plain model of it, in chunks of any size.
#include "fuzz/input.h"
#include "lobby/message_view.h"
#include "tests/fakes/plain_message_view.h"

namespace korvanta::fuzz {
namespace {

using fakes::PlainMessageView;

/// The view and its model, to which the same things happen.
class Pair {
 public:
  explicit Pair(std::size_t chunk_size) : view_(options_, chunk_size) {
    view_.on_changed = [this](const MessageView::Change& change) { Follow(change); };
  }

  void Act(Event event) {
    switch (event.letter) {
      case 'S':
        return Select(event);
      case 'M':
        return Move(event);
      case 'K':
        options_.mnuScrollLock = !options_.mnuScrollLock;
        return view_.ScrollLockToggled();
      case 'C':
        plain_ = {};
        return view_.Clear();
      default: {
        const auto kind = static_cast<MessageKind>(event.letter % 9);
        plain_.Append(std::string(event.text), kind, options_.mnuScrollLock);
        view_.AppendMessage(event.text, kind);
      }
    }
  }

  void CheckAll() {
    const ColouredText& text = view_.text();
    const std::size_t size = plain_.bytes.size();
    Check(view_.size() == size && told_ == plain_.bytes, "the length, and what the widget is told");
    Check(view_.anchor() == plain_.anchor && view_.caret() == plain_.caret, "the selection");
    Check(view_.insertion_point() == std::max(plain_.anchor, plain_.caret), "the insertion point");
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
        NextCaretPlace, PreviousCaretPlace, NextWord, PreviousWord, LineStart, LineEnd, NextLine};
    const Step step = kSteps[event.TakeNumber() % std::size(kSteps)];
    const std::size_t to = step(view_.text(), view_.caret());
    const bool extends = event.TakeNumber() % 2 == 1;
    plain_.Select(extends ? plain_.anchor : to, to);
    view_.MoveCaret(to, extends);
  }

  /// Of a byte, a place in the text or a little behind it.
  std::size_t Scaled(std::size_t byte) const { return byte * (view_.size() + 3) / 255; }

  void Follow(const MessageView::Change& change) {
    if (change.what == MessageView::Change::What::Cleared) {
      told_.clear();
    } else if (change.what == MessageView::Change::What::Inserted) {
      Check(change.offset + change.length <= view_.size(), "new text lies inside the text");
      told_.insert(change.offset, view_.text().Bytes(change.offset, change.offset + change.length));
    }
  }

  void CheckPart(std::size_t from, std::size_t to) {
    view_.text().Read(from, to, part_);
    Check(part_.bytes == plain_.bytes.substr(from, to - from), "the text");
    Check(fakes::Letters(part_) == plain_.letters.substr(from, to - from), "the colours");
    for (std::size_t run = 1; run < part_.runs.size(); ++run) {
      Check(part_.runs[run - 1].role != part_.runs[run].role, "neighbours differ in colour");
      Check(part_.runs[run - 1].end < part_.runs[run].end, "no colour run is empty");
    }
    Check(view_.text().Bytes(from, to) == part_.bytes, "the text without its colours");
  }

  /// Each step leads on, to a place where a caret may stand.
  void CheckSteps(std::size_t at) const {
    const ColouredText& text = view_.text();
    const std::size_t size = view_.size();
    for (const std::size_t next : {NextCaretPlace(text, at), NextWord(text, at)}) {
      Check(at == size ? next == size : next > at && plain_.Place(next) == next, "a step forward");
    }
    for (const std::size_t before : {PreviousCaretPlace(text, at), PreviousWord(text, at)}) {
      Check(at == 0 ? before == 0 : before < at && plain_.Place(before) == before, "a step back");
    }
  }

  Options options_;
  MessageView view_;
  PlainMessageView plain_;
  std::string told_;
  Excerpt part_;
};

}  // namespace
}  // namespace korvanta::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  if (size == 0) {
    return 0;
  }
  Pair pair(std::size_t{*data} % 64 + 1);
  for (Events events(AsText(data + 1, size - 1)); !events.AtEnd();) {
    pair.Act(events.Next());
    pair.CheckAll();
  }
  return 0;
}

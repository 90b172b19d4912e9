#include "lobby/message_view.h"

#include <algorithm>

#include "lobby/line_colours.h"

namespace korvanta {

void MessageView::AppendMessage(std::string_view text, MessageKind kind) {
  if (!IsScrollLocked()) {
    anchor_ = caret_ = size();
  }
  const std::size_t place = insertion_point();
  const auto [first, second] = ColoursOf(kind);
  const std::size_t head = text.find(':') + 1;  // 0 without a colon
  Insert(text.substr(0, head), first);
  Insert(text.substr(head), second);
  Insert("\r\n", second);
  Notify(on_changed, {Change::What::Inserted, place, caret_ - place});
}

void MessageView::Clear() {
  if (size() == 0) {
    return;
  }
  text_.Clear();
  anchor_ = caret_ = 0;
  Notify(on_changed, {Change::What::Cleared});
}

void MessageView::ShowText(std::string_view text) {
  Clear();
  Insert(text, ColourRole::Black);
  anchor_ = caret_ = 0;
  if (!text.empty()) {
    Notify(on_changed, {Change::What::Inserted, 0, size()});
  }
}

TextRange MessageView::selection() const {
  return {std::min(anchor_, caret_), std::max(anchor_, caret_)};
}

void MessageView::Select(std::size_t anchor, std::size_t caret) {
  anchor = CaretPosition(text_, anchor);
  caret = CaretPosition(text_, caret);
  if (anchor == anchor_ && caret == caret_) {
    return;
  }
  anchor_ = anchor;
  caret_ = caret;
  Notify(on_changed, {Change::What::Selection});
}

std::string MessageView::SelectedText() const {
  const auto [from, to] = selection();
  std::string text = text_.Bytes(from, to);
  auto out = text.begin();
  for (auto in = text.begin(); in != text.end(); ++in) {
    if (*in == '\r') {
      *out++ = '\n';
      if (in + 1 != text.end() && in[1] == '\n') {
        ++in;
      }
    } else {
      *out++ = *in;
    }
  }
  text.erase(out, text.end());
  return text;
}

/// Recolours the selection, inserts the text after it, and leaves the caret after the text.
void MessageView::Insert(std::string_view text, ColourRole role) {
  if (text.empty()) {
    return;
  }
  const auto [from, to] = selection();
  text_.Recolour(from, to, role);
  text_.Insert(to, text, role);
  anchor_ = caret_ = to + text.size();
}

}  // namespace korvanta

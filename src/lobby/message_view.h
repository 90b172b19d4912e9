/// The text of the message view: the only copy of everything said in the lobby, with its colours,
/// the selection and the insertion point. Lines are written by AppendMessage; the widget draws from
/// it and moves the caret.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "base/change_notice.h"
#include "lobby/coloured_text.h"
#include "lobby/text_navigation.h"
#include "protocol/options.h"
#include "protocol/receivers.h"

namespace korvanta {

class MessageView final : public ChatOutput {
 public:
  /// For `Inserted`, `length` bytes were inserted at `offset`; the colours just before it may have
  /// changed as well.
  struct Change {
    enum class What { Inserted, Cleared, Selection, ScrollLock };
    What what;
    std::size_t offset = 0;
    std::size_t length = 0;
  };

  /// `options` must outlive the view; Scroll Lock is read from it when needed. `chunk_size` as for
  /// ColouredText.
  explicit MessageView(const Options& options, std::size_t chunk_size = ColouredText::kChunkSize)
      : options_(options), text_(chunk_size) {}

  MessageView(const MessageView&) = delete;
  MessageView& operator=(const MessageView&) = delete;

  /// Writes a line and "\r\n". Without Scroll Lock the line is appended and the selection
  /// cancelled. With it, the line is inserted directly after the selected text, which stays and
  /// takes on the line's first colour; the next line then follows this one. A two-colour text is
  /// split after its first colon; without a colon all of it has the second colour.
  void AppendMessage(std::string_view text, MessageKind kind) override;

  /// "Clear Window": empties the view.
  void Clear();

  /// Replaces everything with a black text, the caret at its start.
  void ShowText(std::string_view text);

  const ColouredText& text() const { return text_; }
  std::size_t size() const { return text_.size(); }

  bool IsScrollLocked() const { return options_.mnuScrollLock; }

  /// To be called when the option has been toggled; does not affect the text.
  void ScrollLockToggled() const { Notify(on_changed, {Change::What::ScrollLock}); }

  /// The ends of the selection; extending it moves `caret` and keeps `anchor`. Both are caret
  /// positions.
  std::size_t anchor() const { return anchor_; }
  std::size_t caret() const { return caret_; }
  TextRange selection() const;

  /// The insertion point of the next line while Scroll Lock is on: the end of the selection.
  std::size_t insertion_point() const { return selection().to; }

  /// Offsets that are not caret positions are moved back to the nearest one.
  void Select(std::size_t anchor, std::size_t caret);
  void MoveCaret(std::size_t offset, bool extend) { Select(extend ? anchor_ : offset, offset); }
  void SelectAll() { Select(0, size()); }

  /// The selected text for other programs: every line break is a single "\n".
  std::string SelectedText() const;

  /// Called after each actual change.
  std::function<void(const Change&)> on_changed;

 private:
  void Insert(std::string_view text, ColourRole role);

  const Options& options_;
  ColouredText text_;
  std::size_t anchor_ = 0;
  std::size_t caret_ = 0;
};

}  // namespace korvanta

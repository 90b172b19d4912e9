/// The message view: the only copy of everything said in the lobby, with its colours, its selection
/// and the place where new lines go in. Everybody writes to it through AppendMessage; its widget
/// draws straight from it and moves the caret.
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
  /// The text from `offset` on is new for `length` bytes; colours
  /// directly before it may have changed too.
  struct Change {
    enum class What { Inserted, Cleared, Selection, ScrollLock };
    What what;
    std::size_t offset = 0;
    std::size_t length = 0;
  };

  /// `options` outlives the view; Scroll Lock is read at the moment of need. `chunk_size` as for
  /// ColouredText.
  explicit MessageView(const Options& options, std::size_t chunk_size = ColouredText::kChunkSize)
      : options_(options), text_(chunk_size) {}

  MessageView(const MessageView&) = delete;
  MessageView& operator=(const MessageView&) = delete;

  /// Writes one line and its "\r\n". Without Scroll Lock it goes to the end and cancels the
  /// selection. With it, it goes directly behind the selection, which stays and takes the line's
  /// first colour; the next line then follows this one. A two-colour text is split behind its first
  /// colon; without a colon all of it has the second colour.
  void AppendMessage(std::string_view text, MessageKind kind) override;

  /// "Clear Window": the view is empty again.
  void Clear();

  /// Replaces everything by a text in black, from whose start it is read.
  void ShowText(std::string_view text);

  const ColouredText& text() const { return text_; }
  std::size_t size() const { return text_.size(); }

  bool IsScrollLocked() const { return options_.mnuScrollLock; }

  /// Call it when the option has been switched; it has no effect on the text.
  void ScrollLockToggled() const { Notify(on_changed, {Change::What::ScrollLock}); }

  /// The ends of the selection: `anchor` stays where `caret` is moved with extension. Both are
  /// places where a caret may stand.
  std::size_t anchor() const { return anchor_; }
  std::size_t caret() const { return caret_; }
  TextRange selection() const;

  /// Where the next line goes in while Scroll Lock is on: the end of the selection.
  std::size_t insertion_point() const { return selection().to; }

  /// Offsets that no caret can have are moved back to the nearest that it can.
  void Select(std::size_t anchor, std::size_t caret);
  void MoveCaret(std::size_t offset, bool extend) { Select(extend ? anchor_ : offset, offset); }
  void SelectAll() { Select(0, size()); }

  /// The selected text as other programs take it: every line break is one "\n".
  std::string SelectedText() const;

  /// Called after each change; calls that change nothing are swallowed.
  std::function<void(const Change&)> on_changed;

 private:
  void Insert(std::string_view text, ColourRole role);

  const Options& options_;
  ColouredText text_;
  std::size_t anchor_ = 0;
  std::size_t caret_ = 0;
};

}  // namespace korvanta

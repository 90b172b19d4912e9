/// The presenter of `cboSend` and `btnSend`, the chat input below the message view: the line being
/// typed, the lines sent before, and whether the line may be sent.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/connection.h"
#include "protocol/options.h"

namespace korvanta {

class ChatInput {
 public:
  /// The most characters that a typed line may have; beyond it `btnSend` is disabled.
  static constexpr std::size_t kLengthLimit = 250;

  ChatInput(Connection& connection, const Options& options)
      : connection_(connection), options_(options) {}

  const std::string& text() const { return text_; }
  /// Lines as they were sent, oldest first; duplicates kept.
  const std::vector<std::string>& history() const { return history_; }
  bool IsSendEnabled() const { return text_.size() <= kLengthLimit; }
  /// Characters left below the limit; negative beyond it.
  std::ptrdiff_t Remaining() const;

  /// The user edited the text; `text` is all of it, and the new draft.
  void TextEdited(std::string_view text);

  /// The user chose a line of the drop-down list.
  void HistoryChosen(std::size_t index);

  /// Recall the next older or newer line as it was typed; after the newest one comes the draft.
  void HistoryUp();
  void HistoryDown();

  /// A click of `btnSend`, or Enter: sends the line, trimmed of spaces and rewritten by Auto Chat,
  /// adds it to the history and empties the box. Does nothing if the button is disabled, the box is
  /// empty or nobody is logged in.
  void SendChatLine();

  std::function<void()> on_changed;

 private:
  void ShowRecalled();

  Connection& connection_;
  const Options& options_;
  std::string text_;
  std::string draft_;
  std::vector<std::string> history_;
  std::vector<std::string> typed_;  // the same lines as they were typed
  std::size_t position_ = 0;        // index into typed_; its size means the draft
};

}  // namespace korvanta

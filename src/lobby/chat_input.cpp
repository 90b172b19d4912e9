#include "lobby/chat_input.h"

#include <utility>

#include "base/change_notice.h"
#include "base/trim.h"
#include "protocol/message_catalogue.h"

namespace korvanta {
namespace {

constexpr std::string_view kChatCommand = "c ";

/// Plain text becomes the chat command; a leading slash marks the text as a command already.
std::string RewriteForAutoChat(std::string_view line) {
  if (line.starts_with('/')) {
    return std::string(line.substr(1));
  }
  return std::string(kChatCommand).append(line);
}

}  // namespace

std::ptrdiff_t ChatInput::Remaining() const {
  return static_cast<std::ptrdiff_t>(kLengthLimit) - static_cast<std::ptrdiff_t>(text_.size());
}

void ChatInput::TextEdited(std::string_view text) {
  if (text == text_) {
    return;
  }
  text_ = text;
  position_ = typed_.size();
  Notify(on_changed);
}

void ChatInput::HistoryChosen(std::size_t index) {
  if (index < history_.size()) {
    TextEdited(history_[index]);
  }
}

void ChatInput::HistoryUp() {
  if (position_ == 0) {
    return;
  }
  if (position_ == typed_.size()) {
    draft_ = text_;
  }
  --position_;
  ShowRecalled();
}

void ChatInput::HistoryDown() {
  if (position_ == typed_.size()) {
    return;
  }
  ++position_;
  ShowRecalled();
}

void ChatInput::ShowRecalled() {
  text_ = position_ == typed_.size() ? draft_ : typed_[position_];
  Notify(on_changed);
}

void ChatInput::SendChatLine() {
  if (!IsSendEnabled() || text_.empty()) {
    return;
  }
  const std::string_view trimmed = TrimSpaces(text_);
  std::string line = options_.mnuAutoChat ? RewriteForAutoChat(trimmed) : std::string(trimmed);
  if (!connection_.SendIfLoggedIn(outbound::ChatLine(line))) {
    return;
  }
  history_.push_back(std::move(line));
  typed_.push_back(std::exchange(text_, {}));
  position_ = typed_.size();
  Notify(on_changed);
}

}  // namespace korvanta

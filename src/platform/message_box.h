/// Modal message boxes.
#pragma once

#include <string_view>

namespace korvanta {

enum class MessageIcon { None, Exclamation, Critical };

/// Texts are plain text in Windows-1252. Both calls return when the user has answered. Events are
/// handled meanwhile, so callers must re-read any state that they use afterwards.
class MessageBox {
 public:
  MessageBox() = default;
  MessageBox(const MessageBox&) = delete;
  MessageBox& operator=(const MessageBox&) = delete;
  virtual ~MessageBox() = default;

  /// One OK button.
  virtual void Show(std::string_view text, std::string_view title, MessageIcon icon) = 0;

  /// Yes and No buttons, no icon. True for Yes; closing the box by other means is No.
  virtual bool Ask(std::string_view text, std::string_view title) = 0;
};

}  // namespace korvanta

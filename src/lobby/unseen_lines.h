/// Counts the lines that arrive out of view while Scroll Lock is on, until they are seen or the
/// next line arrives without it. Kept by ScrollPosition, shown by the view's widget.
#pragma once

#include <cstddef>
#include <string>

#include "lobby/message_view.h"

namespace korvanta {

class UnseenLines {
 public:
  std::size_t count() const { return count_; }

  /// Start of the newest of them.
  std::size_t newest() const { return newest_; }

  /// The lines have been seen.
  void Clear() { count_ = 0; }

  /// To be called with every change of the view.
  void TextChanged(const MessageView::Change& change, bool scroll_locked) {
    using What = MessageView::Change::What;
    if (change.what == What::Inserted && scroll_locked) {
      ++count_;
      newest_ = change.offset;
    } else if (change.what == What::Inserted || change.what == What::Cleared) {
      Clear();
    }
  }

  /// "1 new line", "3 new lines".
  std::string Caption() const {
    return std::to_string(count_) + (count_ == 1 ? " new line" : " new lines");
  }

 private:
  std::size_t count_ = 0;
  std::size_t newest_ = 0;
};

}  // namespace korvanta

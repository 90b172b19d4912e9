/// Counts the lines that come into the message view out of sight while Scroll Lock holds it.
/// ScrollPosition keeps the count, the view's widget shows it.
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

  /// They have been seen, or nobody is held back any more.
  void Clear() { count_ = 0; }

  /// Call it with each change of the view.
  void TextChanged(const MessageView::Change& change, bool scroll_locked) {
    if (change.what == MessageView::Change::What::Inserted && scroll_locked) {
      ++count_;
      newest_ = change.offset;
    } else if (change.what == MessageView::Change::What::Cleared || !scroll_locked) {
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

#include "lobby/scroll_position.h"

#include <algorithm>

namespace korvanta {

ScrollPosition::ScrollPosition(const MessageView& view, const TextRows& rows)
    : view_(view), rows_(rows), follow_(IsAtEnd()) {}

int ScrollPosition::page() const {
  return static_cast<int>(std::max<std::size_t>(2, whole_rows_)) - 1;
}

std::size_t ScrollPosition::OffsetAt(ScreenPosition place, Aim aim) const {
  return rows_.OffsetInRow(rows_.Down(top_, place.row), place.x, aim);
}

void ScrollPosition::TextChanged(const MessageView::Change& change) {
  using What = MessageView::Change::What;
  if (change.what == What::Cleared) {
    top_ = anchor_ = 0;
  } else if (change.what == What::Inserted) {
    if (!view_.IsScrollLocked()) {
      follow_ = IsAtEnd();
    }
    // Text inserted above the view, or right at its top, does not move what is visible; the first
    // text of an empty view is shown.
    if (change.offset <= top_ && change.offset + change.length < view_.size()) {
      top_ += change.length;
      wrap_changed_ = true;
      anchor_ = top_;
    } else if (change.offset <= anchor_) {
      anchor_ = top_;
    }
  }
  end_changed_ = end_changed_ || change.what != What::Selection;
  unseen_.TextChanged(change, view_.IsScrollLocked());
}

void ScrollPosition::Settle() {
  if (end_changed_) {
    const std::size_t last = rows_.StartOf(view_.size());
    const bool is_left_out = last == view_.size() && !view_.IsScrollLocked();
    last_top_ = rows_.Up(last, is_left_out ? whole_rows_ : whole_rows_ - 1);
  }
  if (wrap_changed_ && !follow_) {
    top_ = rows_.StartOf(anchor_);
  }
  if (follow_ || top_ > last_top_) {
    top_ = anchor_ = last_top_;
  }
  follow_ = wrap_changed_ = end_changed_ = false;
  if (unseen_.count() > 0 && IsVisible(unseen_.newest())) {
    unseen_.Clear();
  }
  Notify(on_changed);
}

void ScrollPosition::Rewrap(std::size_t whole_rows) {
  follow_ = follow_ || (IsShowingEnd() && !view_.IsScrollLocked());
  whole_rows_ = whole_rows;
  wrap_changed_ = end_changed_ = true;
  Settle();
}

void ScrollPosition::HoldEnd() {
  SettleChanges();
  follow_ = IsShowingEnd();
}

void ScrollPosition::ScrollTo(std::size_t offset) { SetTop(rows_.StartOf(offset)); }

void ScrollPosition::ScrollRows(int count) {
  SettleChanges();
  SetTop(count < 0 ? rows_.Up(top_, static_cast<std::size_t>(-count))
                   : rows_.Down(top_, static_cast<std::size_t>(count)));
}

void ScrollPosition::Show(std::size_t offset) {
  SettleChanges();
  SetTop(TopShowing(offset));
}

void ScrollPosition::ShowCentred(TextRange range) {
  SettleChanges();
  if (!IsVisible(range.from) || !IsVisible(range.to)) {
    SetTop(rows_.Up(rows_.StartOf(range.from), whole_rows_ / 2));
  }
}

void ScrollPosition::ShowUnseen() {
  if (unseen_.count() > 0) {
    const std::size_t newest = unseen_.newest();
    Show(LineEnd(view_.text(), newest));
    Show(newest);
  }
}

/// Whether the next line is appended and should be scrolled to.
bool ScrollPosition::IsAtEnd() const {
  return !view_.IsScrollLocked() && view_.caret() == view_.size();
}

/// Whether the end is visible, and not just because the whole text fits.
bool ScrollPosition::IsShowingEnd() const {
  return !end_changed_ && top_ >= last_top_ && (last_top_ > 0 || IsAtEnd());
}

/// The top nearest to the current one at which the row of `offset` is fully visible.
std::size_t ScrollPosition::TopShowing(std::size_t offset) const {
  const std::size_t row = rows_.StartOf(offset);
  return row < top_ ? row : std::max(top_, rows_.Up(row, whole_rows_ - 1));
}

void ScrollPosition::SettleChanges() {
  if (end_changed_) {
    Settle();
  }
}

/// `top` is the start of a row.
void ScrollPosition::SetTop(std::size_t top) {
  follow_ = wrap_changed_ = false;
  top_ = anchor_ = top;
  Settle();
}

}  // namespace korvanta

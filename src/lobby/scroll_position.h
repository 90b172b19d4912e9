/// The scroll position of the message view: its first visible row, and how that changes as lines
/// arrive, rows are rewrapped and the user scrolls. The view's widget draws from that row on.
///
/// Changes of the text are batched: they take effect when settled, at the latest before the next
/// frame or the user's next move.
#pragma once

#include <cstddef>
#include <functional>

#include "lobby/line_layout.h"
#include "lobby/message_view.h"
#include "lobby/unseen_lines.h"

namespace korvanta {

/// A visible position: the row, counted from the first visible one, and the distance from its left
/// edge.
struct ScreenPosition {
  std::size_t row;
  float x;
};

class ScrollPosition {
 public:
  /// Both must outlive it. `rows` lays out the view's text.
  ScrollPosition(const MessageView& view, const TextRows& rows);

  const TextRows& rows() const { return rows_; }

  /// Offset of the first visible row, always the start of a row.
  std::size_t top() const { return top_; }

  /// The largest top, at which the end of the text is just visible. The empty row after the last
  /// line break counts only with Scroll Lock, when lines can be inserted there.
  std::size_t last_top() const { return last_top_; }

  /// Lines that arrived out of view while Scroll Lock was on.
  const UnseenLines& unseen() const { return unseen_; }

  /// Rows that a page move scrolls by: one less than are fully visible, but at least one.
  int page() const;

  bool IsVisible(std::size_t offset) const { return TopShowing(offset) == top_; }
  std::size_t OffsetAt(ScreenPosition place, Aim aim) const;

  /// To be called with every change of the view.
  void TextChanged(const MessageView::Change& change);

  /// Applies the changes so far.
  void Settle();

  /// To be called after the width or height of the rows has changed; `whole_rows` of them, 1 or
  /// more, are fully visible. Keeps the first visible byte in the first row, or the end of the text
  /// in view if it was visible and Scroll Lock is off.
  void Rewrap(std::size_t whole_rows);

  /// To be called before such a change: if the end of the text is visible, it is kept in view even
  /// with Scroll Lock.
  void HoldEnd();

  /// Scrolls to the row that contains `offset`, or as close to it as the end of the text allows.
  void ScrollTo(std::size_t offset);

  /// Scrolls down, or up if negative.
  void ScrollRows(int count);

  /// Scrolls as little as needed to show the row of `offset`.
  void Show(std::size_t offset);

  /// Unless the whole range is visible, scrolls its start to the middle.
  void ShowCentred(TextRange range);

  /// Scrolls to the newest of the unseen lines; the caret does not move.
  void ShowUnseen();

  /// Called after the changes have been applied and after each move.
  std::function<void()> on_changed;

 private:
  bool IsAtEnd() const;
  bool IsShowingEnd() const;
  std::size_t TopShowing(std::size_t offset) const;
  void SettleChanges();
  void SetTop(std::size_t top);

  const MessageView& view_;
  const TextRows& rows_;
  std::size_t whole_rows_ = 1;
  UnseenLines unseen_;

  std::size_t top_ = 0;
  std::size_t anchor_ = 0;     // the byte that rewrapping keeps in the first row
  std::size_t last_top_ = 0;   // as of the last Settle
  bool follow_ = false;        // the next Settle scrolls to the end
  bool wrap_changed_ = false;  // rows may start elsewhere
  bool end_changed_ = true;    // last_top_ is out of date
};

}  // namespace korvanta

/// Where the message view looks: the first row in sight, and what becomes of it while lines come
/// in, rows wrap anew and the user scrolls. The view's widget draws from that row on.
///
/// Changes of the text take effect when they are settled, at the latest before the next frame or
/// the user's next move, however many have come in.
#pragma once

#include <cstddef>
#include <functional>

#include "lobby/line_layout.h"
#include "lobby/message_view.h"
#include "lobby/unseen_lines.h"

namespace korvanta {

/// A place in sight: the row, counted from the first one, and the distance from its left edge.
struct ScreenPlace {
  std::size_t row;
  float x;
};

class ScrollPosition {
 public:
  /// Both outlive this. `rows` are of the view's text.
  ScrollPosition(const MessageView& view, const TextRows& rows);

  const TextRows& rows() const { return rows_; }

  /// Offset of the first row in sight, always the start of a row.
  std::size_t top() const { return top_; }

  /// The largest top: the end of the text is just in sight. The empty row behind the last line
  /// break counts only while the user can have lines go in there, that is with Scroll Lock.
  std::size_t last_top() const { return last_top_; }

  /// Lines that came in out of sight while Scroll Lock held the view.
  const UnseenLines& unseen() const { return unseen_; }

  /// Rows by which a page moves: all that are seen whole but one, and at least one.
  int page() const;

  bool IsInSight(std::size_t offset) const { return TopShowing(offset) == top_; }
  std::size_t OffsetAt(ScreenPlace place, Aim aim) const;

  /// Call it with each change of the view.
  void TextChanged(const MessageView::Change& change);

  /// The changes take effect.
  void Settle();

  /// Call it after the rows have got another width or height; `whole_rows` of them, 1 or more, are
  /// seen whole. The first byte in sight stays there, or the end of the text if it was in sight and
  /// Scroll Lock is off.
  void Rewrap(std::size_t whole_rows);

  /// Call it before the rows change: the end of the text, if it is in sight, is to stay there even
  /// with Scroll Lock.
  void HoldEnd();

  /// To the row around `offset`, or as near to it as the end of the text lets it be.
  void ScrollTo(std::size_t offset);

  /// Down, or up with a negative number.
  void ScrollRows(int count);

  /// Scrolls as little as brings the row of `offset` into sight.
  void Show(std::size_t offset);

  /// Unless all of the range is in sight, brings its start to the middle.
  void ShowCentred(TextRange range);

  /// Scrolls to the newest of the unseen lines; the caret stays.
  void ShowUnseen();

  /// Called when the changes have taken effect and after each move.
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
  std::size_t anchor_ = 0;     // the byte that wrapping anew keeps in the first row
  std::size_t last_top_ = 0;   // as of the last settling
  bool follow_ = false;        // the end comes into sight with the next settling
  bool wrap_changed_ = false;  // rows may start elsewhere
  bool end_changed_ = true;    // last_top_ is out of date
};

}  // namespace korvanta

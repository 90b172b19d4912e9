/// The search in the message view: the search term and the current match, which the view's widget
/// highlights.
///
/// The match is independent of the view's selection. With Scroll Lock on, the selection is where
/// new lines are inserted: a search that moved it would send them into the middle of old lines,
/// even if Scroll Lock is switched on only afterwards. With Scroll Lock off, the next line would
/// cancel the selection, and the search would lose its position. Only SelectMatch, at the user's
/// request, selects the match.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "lobby/message_view.h"

namespace korvanta {

class MessageSearch {
 public:
  /// Chat is read from its end: a search begins with the newest match and proceeds to older ones.
  enum class Direction { Older, Newer };

  enum class Outcome { Nothing, Found, WrappedToNewest, WrappedToOldest, NoMatch };

  /// The view must outlive it.
  explicit MessageSearch(MessageView& view) : view_(view) {}

  /// Restarts at the newest line; the search term stays.
  void Start();

  /// The search term has changed: keeps the match if it still fits, else moves to an older one.
  Outcome SetTerm(std::string_view term);

  /// Moves to the next match in that direction, wrapping around at the end of the text.
  Outcome Next(Direction direction);

  /// Makes the match the view's selection, as if the user had selected it by hand.
  void SelectMatch();

  /// Drops the match; the position is kept.
  void Stop() { match_ = {0, 0}; }

  /// Empty if there is none.
  TextRange match() const { return match_; }

  /// Keeps the match while the text around it changes. To be called with every change of the view.
  void TextChanged(const MessageView::Change& change);

 private:
  enum class Place { AtMatch, AtNewest };

  Outcome GoOlder(std::size_t to);
  Outcome GoNewer(std::size_t from);
  Outcome Show(std::optional<std::size_t> start, Outcome how);

  MessageView& view_;
  std::string term_;
  TextRange match_{0, 0};
  Place place_ = Place::AtNewest;
  std::size_t from_ = 0;  // start of the last match, the position of the search
};

}  // namespace korvanta

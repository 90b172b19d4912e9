/// The search in the message view: what is sought, and the match that is shown. The view's widget
/// asks it and draws the match.
///
/// The match is a mark of its own and never the view's selection. With Scroll Lock on, the
/// selection is the place where lines go in: a search that moved it would send the next lines into
/// the middle of old ones, and so would one before Scroll Lock is switched on to hold the match in
/// sight. With Scroll Lock off, the next line would cancel the selection, and the search would lose
/// its place. Only SelectMatch, which the user asks for, selects it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "lobby/message_view.h"

namespace korvanta {

class MessageSearch {
 public:
  /// A chat is read from its end: the newest match comes first, and older ones are next.
  enum class Direction { Older, Newer };

  enum class Outcome { Nothing, Found, FoundAgainFromNewest, FoundAgainFromOldest, NoMatch };

  /// The view outlives it.
  explicit MessageSearch(MessageView& view) : view_(view) {}

  /// Begins at the newest line again; what was sought stays.
  void Start();

  /// The text to find has changed: keeps the match while it fits, else goes to an older one.
  Outcome Seek(std::string_view sought);

  /// To the next match that way, from the other end of the text when there is no more.
  Outcome Next(Direction direction);

  /// Makes the match the view's selection, as if the user had selected it by hand.
  void SelectMatch();

  /// Shows no match any more; the place in the text is kept.
  void Stop() { match_ = {0, 0}; }

  /// Empty when there is none.
  TextRange match() const { return match_; }

  /// Keeps to the match while the text changes around it. Call it with each change of the view.
  void TextChanged(const MessageView::Change& change);

 private:
  enum class Place { AtMatch, AtNewest };

  Outcome GoOlder(std::size_t to);
  Outcome GoNewer(std::size_t from);
  Outcome Show(std::optional<std::size_t> start, Outcome how);

  MessageView& view_;
  std::string sought_;
  TextRange match_{0, 0};
  Place place_ = Place::AtNewest;
  std::size_t from_ = 0;  // start of the last match, where the search is
};

}  // namespace korvanta

#include "lobby/message_search.h"

#include <algorithm>

#include "lobby/text_search.h"

namespace korvanta {

void MessageSearch::Start() {
  place_ = Place::AtNewest;
  Stop();
}

MessageSearch::Outcome MessageSearch::SetTerm(std::string_view term) {
  term_ = term;
  if (term_.empty()) {
    Start();
    return Outcome::Nothing;
  }
  return place_ == Place::AtMatch ? GoOlder(from_ + term_.size()) : GoOlder(view_.size());
}

MessageSearch::Outcome MessageSearch::Next(Direction direction) {
  if (term_.empty()) {
    return Outcome::Nothing;
  }
  const bool at_match = place_ == Place::AtMatch;
  if (direction == Direction::Older) {
    return GoOlder(at_match ? from_ : view_.size());  // matches do not overlap
  }
  return GoNewer(at_match ? from_ + std::max<std::size_t>(1, match_.to - match_.from)
                          : view_.size());
}

/// Moves to the last match that ends at `to` or before. If there is none, searches what comes after
/// `to`, and what overlaps it.
MessageSearch::Outcome MessageSearch::GoOlder(std::size_t to) {
  const ColouredText& text = view_.text();
  if (const auto start = FindLast(text, term_, to)) {
    return Show(start, Outcome::Found);
  }
  const std::size_t rest = to - std::min(to, term_.size() - 1);
  return Show(FindLast(text, term_, text.size(), rest), Outcome::WrappedToNewest);
}

MessageSearch::Outcome MessageSearch::GoNewer(std::size_t from) {
  const ColouredText& text = view_.text();
  if (const auto start = FindFirst(text, term_, from)) {
    return Show(start, Outcome::Found);
  }
  return Show(FindFirst(text, term_, 0, from + term_.size() - 1), Outcome::WrappedToOldest);
}

void MessageSearch::SelectMatch() {
  if (!match_.empty()) {
    view_.Select(match_.from, match_.to);
  }
}

void MessageSearch::TextChanged(const MessageView::Change& change) {
  using What = MessageView::Change::What;
  if (change.what == What::Cleared) {
    Start();
  } else if (change.what == What::Inserted) {
    if (change.offset <= from_) {
      from_ += change.length;
    }
    if (change.offset <= match_.from) {
      match_ = {match_.from + change.length, match_.to + change.length};
    } else if (change.offset < match_.to) {
      Stop();  // the new text splits it
    }
  }
}

/// A search without a match keeps its position, so that a typing error does not lose it.
MessageSearch::Outcome MessageSearch::Show(std::optional<std::size_t> start, Outcome how) {
  if (!start) {
    Stop();
    return Outcome::NoMatch;
  }
  place_ = Place::AtMatch;
  from_ = *start;
  match_ = {from_, from_ + term_.size()};
  return how;
}

}  // namespace korvanta

#include "lobby/message_search.h"

#include <algorithm>

#include "lobby/text_search.h"

namespace korvanta {

void MessageSearch::Start() {
  place_ = Place::AtNewest;
  Stop();
}

MessageSearch::Outcome MessageSearch::Seek(std::string_view sought) {
  sought_ = sought;
  if (sought_.empty()) {
    Start();
    return Outcome::Nothing;
  }
  return place_ == Place::AtMatch ? GoOlder(from_ + sought_.size()) : GoOlder(view_.size());
}

MessageSearch::Outcome MessageSearch::Next(Direction direction) {
  if (sought_.empty()) {
    return Outcome::Nothing;
  }
  const bool at_match = place_ == Place::AtMatch;
  if (direction == Direction::Older) {
    return GoOlder(at_match ? from_ : view_.size());  // matches do not overlap
  }
  return GoNewer(at_match ? from_ + std::max<std::size_t>(1, match_.to - match_.from)
                          : view_.size());
}

/// To the last match that ends at `to` or before. Then only what lies behind is searched, and what
/// lies across.
MessageSearch::Outcome MessageSearch::GoOlder(std::size_t to) {
  const ColouredText& text = view_.text();
  if (const auto start = FindLast(text, sought_, to)) {
    return Show(start, Outcome::Found);
  }
  const std::size_t rest = to - std::min(to, sought_.size() - 1);
  return Show(FindLast(text, sought_, text.size(), rest), Outcome::FoundAgainFromNewest);
}

MessageSearch::Outcome MessageSearch::GoNewer(std::size_t from) {
  const ColouredText& text = view_.text();
  if (const auto start = FindFirst(text, sought_, from)) {
    return Show(start, Outcome::Found);
  }
  return Show(FindFirst(text, sought_, 0, from + sought_.size() - 1),
              Outcome::FoundAgainFromOldest);
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

/// A search in vain keeps its place, so that a typing error does not lose it.
MessageSearch::Outcome MessageSearch::Show(std::optional<std::size_t> start, Outcome how) {
  if (!start) {
    Stop();
    return Outcome::NoMatch;
  }
  place_ = Place::AtMatch;
  from_ = *start;
  match_ = {from_, from_ + sought_.size()};
  return how;
}

}  // namespace korvanta

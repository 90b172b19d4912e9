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
  if (place_ == Place::AtMatch) {
    const std::size_t to = std::min(from_ + sought_.size(), view_.size());
    if (const auto start = FindLast(view_.text(), sought_, to)) {
      return Show(start, Outcome::Found);
    }
  }
  const Outcome how = place_ == Place::AtMatch ? Outcome::FoundAgainFromNewest : Outcome::Found;
  return Show(FindLast(view_.text(), sought_, view_.size()), how);
}

MessageSearch::Outcome MessageSearch::Next(Direction direction) {
  if (sought_.empty()) {
    return Outcome::Nothing;
  }
  const ColouredText& text = view_.text();
  if (direction == Direction::Older) {
    if (place_ == Place::AtNewest) {
      return Show(FindLast(text, sought_, text.size()), Outcome::Found);
    }
    // Matches do not overlap: the next one ends where this one starts, or before.
    if (const auto start = FindLast(text, sought_, from_)) {
      return Show(start, Outcome::Found);
    }
    return Show(FindLast(text, sought_, text.size()), Outcome::FoundAgainFromNewest);
  }
  const std::size_t from = place_ == Place::AtNewest
                               ? text.size()
                               : from_ + std::max<std::size_t>(1, match_.to - match_.from);
  if (const auto start = FindFirst(text, sought_, from)) {
    return Show(start, Outcome::Found);
  }
  return Show(FindFirst(text, sought_, 0), Outcome::FoundAgainFromOldest);
}

void MessageSearch::Take() {
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
      Stop();  // it is torn apart
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

/// The user interface of the search in the message view: opens and closes the find bar, and scrolls
/// to each match.
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <functional>

#include "lobby/message_search.h"
#include "lobby/scroll_position.h"

namespace korvanta {

class FindBar;

class Finder {
 public:
  /// All must outlive it. The bar becomes a child of `widget`. After the search, the focus returns
  /// to the control that had it before, or else to `widget`.
  Finder(MessageView& view, ScrollPosition& position, QWidget& widget);

  /// The match to highlight; empty if there is none.
  TextRange match() const { return search_.match(); }

  bool IsOpen() const;
  void Open();
  void Close();

  /// Moves to the next match in that direction; opens the search if it is closed.
  void Next(MessageSearch::Direction direction);

  /// Height of the bar in pixels; 0 while the search is closed.
  int height() const;

  /// Puts the bar directly below `viewport`.
  void PlaceBelow(const QRect& viewport);

  /// To be called with every change of the view.
  void TextChanged(const MessageView::Change& change) { search_.TextChanged(change); }

  /// Called when the search opens or closes, and when the match has changed.
  std::function<void()> on_changed;

 private:
  void MakeBar();
  void ShowOutcome(MessageSearch::Outcome outcome);

  const MessageView& view_;
  ScrollPosition& position_;
  QWidget& widget_;
  MessageSearch search_;
  FindBar* bar_ = nullptr;  // created when first needed
  QPointer<QWidget> focus_before_;
};

}  // namespace korvanta

/// The search in the message view as the user meets it: opens and closes the find bar, and brings
/// each match into sight.
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
  /// All of them outlive this. The bar becomes a child of `widget`, which has the focus when the
  /// search is over, unless something else had it before.
  Finder(MessageView& view, ScrollPosition& position, QWidget& widget);

  /// What has been found, to be painted; empty when there is nothing.
  TextRange match() const { return search_.match(); }

  bool IsOpen() const;
  void Open();
  void Close();

  /// To the next match that way; opens the search if need be.
  void Next(MessageSearch::Direction direction);

  /// Height of the bar in pixels; 0 while the search is closed.
  int height() const;

  /// Puts the bar directly below `viewport`.
  void PlaceBelow(const QRect& viewport);

  /// Call it with each change of the view.
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
  FindBar* bar_ = nullptr;  // made when it is first wanted
  QPointer<QWidget> focus_before_;
};

}  // namespace korvanta

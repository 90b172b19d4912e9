/// The bar at the bottom of the message view in which the user types what to find. It knows only
/// keys and captions; `Finder` does the rest.
#pragma once

#include <QWidget>
#include <functional>

#include "lobby/message_search.h"

class QLabel;
class QLineEdit;

namespace korvanta {

class FindBar : public QWidget {
 public:
  /// Follows `parent` in the tab order.
  explicit FindBar(QWidget* parent);

  /// Takes the focus and selects the previous search term.
  void StartTyping();

  /// Shows how the last search went; `line`, the line found, is for screen readers.
  void ShowOutcome(MessageSearch::Outcome outcome, const QString& line);

  std::function<void(const QString& text)> on_typed;
  std::function<void(MessageSearch::Direction)> on_next;
  std::function<void()> on_select;
  std::function<void()> on_close;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QLineEdit* txtFind;
  QLabel* lblOutcome;
};

}  // namespace korvanta

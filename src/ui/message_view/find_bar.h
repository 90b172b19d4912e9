/// The line in the message view in which the user types what to find there. It knows keys and
/// captions only; what they do is the view's.
#pragma once

#include <QWidget>
#include <functional>

#include "lobby/message_search.h"

class QLabel;
class QLineEdit;

namespace korvanta {

class FindBar : public QWidget {
 public:
  /// The Tab key comes to it from `parent`.
  explicit FindBar(QWidget* parent);

  /// Takes the focus, with what was sought before selected.
  void StartTyping();

  /// Says in words how the last search went; `line`, the one that was found, is for screen readers.
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

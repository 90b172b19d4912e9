/// The chat line's combo box, which shows the chat input.
#pragma once

#include "lobby/chat_input.h"
#include "ui/kit/choice_box.h"

class QLabel;

namespace korvanta {

class ChatBox : public ChoiceBox {
 public:
  /// The chat input must outlive the box; its listener calls `Refresh`.
  ChatBox(ChatInput& input, QWidget* parent);

  /// Shows the input's text, history and remaining characters.
  void Refresh();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowRemaining();

  ChatInput& input_;
  QLabel* lblRemaining;
};

}  // namespace korvanta

/// The chat line's combo box, drawn from the chat input.
#pragma once

#include "lobby/chat_input.h"
#include "ui/kit/choice_box.h"

class QLabel;

namespace korvanta {

class ChatBox : public ChoiceBox {
 public:
  /// The chat input outlives the box; its `on_changed` stays with the owner, who calls `Refresh`.
  ChatBox(ChatInput& input, QWidget* parent);

  /// Draws the input's text, history and remaining characters.
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

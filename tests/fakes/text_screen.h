/// A message view on a screen of four rows of ten bytes, each one wide.
#pragma once

#include <string>

#include "lobby/scroll_position.h"

namespace korvanta::fakes {

struct TextScreen {
  TextScreen() {
    advances.fill(1);
    SetWidth(10);
    view.on_changed = [this](const MessageView::Change& change) { position.TextChanged(change); };
  }

  void SetWidth(float width) {
    rows.SetWidth(width);
    position.Rewrap(4);
  }

  void Write(std::string_view text) {
    view.AppendMessage(text, MessageKind::Status);
    position.Settle();
  }

  void Lock(bool on) {
    options.mnuScrollLock = on;
    view.ScrollLockToggled();
    position.Settle();
  }

  /// The text of the first row in sight.
  std::string TopRow() const {
    const Row row = rows.At(position.top());
    return view.text().Bytes(row.start, row.end);
  }

  Options options;
  MessageView view{options, 64};
  Advances advances;
  TextRows rows{view.text(), advances};
  ScrollPosition position{view, rows};
};

}  // namespace korvanta::fakes

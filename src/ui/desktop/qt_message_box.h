/// Message boxes of the toolkit.
#pragma once

#include <QString>
#include <string_view>

#include "platform/message_box.h"

namespace korvanta {

/// Application-modal, above the active window.
class QtMessageBox final : public MessageBox {
 public:
  void Show(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool Ask(std::string_view text, std::string_view title) override;

  /// What a box shows of a text: the whole of it up to 1500 characters and 25 lines, then an
  /// ellipsis. Words too long for a line get invisible places to break.
  static QString Fit(const QString& text);
};

}  // namespace korvanta

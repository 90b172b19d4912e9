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

  /// What a box shows of a text: as much as fills 24 lines of 40 characters, then an ellipsis, so
  /// that no box outgrows the screen. Words longer than a line get invisible places to break.
  static QString Fit(const QString& text);
};

}  // namespace korvanta

/// Message boxes of the toolkit.
#pragma once

#include <QSize>
#include <QString>
#include <string_view>

#include "platform/message_box.h"

class QFontMetrics;

namespace korvanta {

/// Application-modal, in the middle of the active window; of the main window while the user is in
/// another program.
class QtMessageBox final : public MessageBox {
 public:
  void Show(std::string_view text, std::string_view title, MessageIcon icon) override;
  bool Ask(std::string_view text, std::string_view title) override;

  /// What a box with that room for its text shows of it: all, where it fits. Else an ellipsis
  /// stands for its middle, so that no box outgrows the screen and the end can be read. A word gets
  /// invisible places to break only where it is wider than the room.
  static QString Fit(const QString& text, const QFontMetrics& font, QSize room);
};

}  // namespace korvanta

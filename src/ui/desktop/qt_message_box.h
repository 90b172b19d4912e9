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

  /// The text as a box shows it that has `room` for it: all of it if it fits. Otherwise an ellipsis
  /// replaces its middle, so that the box does not outgrow the screen and the end can be read. A
  /// word wider than the room gets invisible break opportunities.
  static QString Fit(const QString& text, const QFontMetrics& font, QSize room);
};

}  // namespace korvanta

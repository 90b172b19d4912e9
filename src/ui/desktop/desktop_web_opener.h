/// Opens web addresses with the desktop's browser.
#pragma once

#include <QString>
#include <string_view>

#include "platform/web_opener.h"

namespace korvanta {

/// Only what `IsWebAddress` is handed to the desktop: anything else could start a program or read
/// a file of the user's.
class DesktopWebOpener final : public WebOpener {
 public:
  int Open(std::string_view address) override;

  /// The code for an attempt: 33 opened, 31 nothing there to open it with, 2 no address but the
  /// path of a file, which nobody looks for, 5 anything else.
  static int OpenCode(const QString& address, bool was_opened, bool has_browser);
};

}  // namespace korvanta

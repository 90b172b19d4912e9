/// Opens web addresses in the desktop's browser.
#pragma once

#include <QObject>

#include "platform/web_opener.h"

namespace korvanta {

/// Only addresses that satisfy `IsWebAddress` are passed to the desktop: anything else could start
/// a program or open one of the user's files. A browser outlives the opener.
class DesktopWebOpener final : public WebOpener {
 public:
  void Open(std::string_view address, std::function<void(int code)> done) override;

 private:
  QObject context_;  ///< no answer comes after its end
};

}  // namespace korvanta

/// Opens web addresses with the desktop's browser.
#pragma once

#include <QObject>
#include <QString>

#include "platform/web_opener.h"

namespace korvanta {

/// Only what `IsWebAddress` is handed to the desktop: anything else could start a program or read
/// a file of the user's.
class DesktopWebOpener final : public WebOpener {
 public:
  /// By `xdg-open`, whose exit status says why it failed, and which may live as long as the
  /// browser. The toolkit would start it too, but not wait for the status; it is asked where there
  /// is no `xdg-open`. A browser outlives the opener.
  void Open(std::string_view address, std::function<void(int code)> done) override;

 private:
  void Start(const QString& program, const QString& address, std::function<void(int code)> done);

  QObject processes_;  ///< their parent
};

}  // namespace korvanta

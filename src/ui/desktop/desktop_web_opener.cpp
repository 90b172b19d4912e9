#include "ui/desktop/desktop_web_opener.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

#include "ui/desktop/web_address.h"
#include "ui/text.h"

namespace korvanta {

int DesktopWebOpener::Open(std::string_view address) {
  const QString text = ToQString(address);
  const bool was_opened =
      IsWebAddress(text) && QDesktopServices::openUrl(QUrl(text, QUrl::StrictMode));
  const bool has_browser =
      was_opened || !QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty();
  return OpenCode(text, was_opened, has_browser);
}

int DesktopWebOpener::OpenCode(const QString& address, bool was_opened, bool has_browser) {
  if (was_opened) {
    return 33;
  }
  if (IsWebAddress(address)) {
    return has_browser ? 5 : 31;
  }
  return QUrl(address).scheme().isEmpty() ? 2 : 5;
}

}  // namespace korvanta

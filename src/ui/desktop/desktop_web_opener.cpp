#include "ui/desktop/desktop_web_opener.h"

#include <QString>
#include <QUrl>
#include <utility>

#include "ui/desktop/desktop_open.h"
#include "ui/desktop/web_address.h"
#include "ui/kit/text.h"

namespace korvanta {
void DesktopWebOpener::Open(std::string_view address, std::function<void(int code)> done) {
  const QString text = ToQString(address);
  if (!IsWebAddress(text)) {
    return done(text.contains(QLatin1Char(':')) ? Refused : FileNotFound);
  }
  OpenWithDesktop(QUrl(text, QUrl::StrictMode).toString(QUrl::FullyEncoded), context_,
                  std::move(done));
}

}  // namespace korvanta

#include "ui/desktop/desktop_web_opener.h"

#include <QString>
#include <QUrl>
#include <utility>

#include "ui/desktop/desktop_open.h"
#include "ui/desktop/web_address.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr int kNoSuchFile = 2;
constexpr int kRefused = 5;

}  // namespace

void DesktopWebOpener::Open(std::string_view address, std::function<void(int code)> done) {
  const QString text = ToQString(address);
  if (!IsWebAddress(text)) {
    return done(text.contains(QLatin1Char(':')) ? kRefused : kNoSuchFile);
  }
  OpenWithDesktop(QUrl(text, QUrl::StrictMode).toString(QUrl::FullyEncoded), context_,
                  std::move(done));
}

}  // namespace korvanta

#include "ui/desktop/web_address.h"

#include <QUrl>

namespace korvanta {

bool IsWebAddress(const QString& address) {
  const QUrl url(address, QUrl::StrictMode);
  const bool is_web =
      url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
  return is_web && url.isValid() && !url.host().isEmpty();
}

}  // namespace korvanta

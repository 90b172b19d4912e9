#include "ui/desktop/deployment_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <array>
#include <optional>

#include "startup/ini_text.h"
#include "ui/desktop/web_address.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

constexpr qint64 kMaxDeploymentFile = qint64{64} * 1024;
constexpr int kMaxNoticeLine = 120;
constexpr int kMaxQuotation = 200;

bool IsDottedAddress(const QString& text) {
  const QHostAddress address(text);
  return address.protocol() == QAbstractSocket::IPv4Protocol && address.toString() == text;
}

bool IsNoticeLine(const QString& text) { return text.size() <= kMaxNoticeLine; }

QString Quoted(const QString& text) {
  return QLatin1Char('"') +
         (text.size() > kMaxQuotation ? text.first(kMaxQuotation) + QChar(0x2026) : text) +
         QLatin1Char('"');
}

QString FromUtf8(std::string_view bytes) {
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

struct Key {
  std::string_view name;
  std::string& value;
  bool (*is_valid)(const QString& text);
  QString form;
};

/// What is wrong, without the name of the file; empty on success.
QString ReadValues(const IniText& text, DeploymentValues& values) {
  if (const auto& line = text.MalformedLine()) {
    return QStringLiteral("has the line %1, which is not an entry.").arg(Quoted(FromUtf8(*line)));
  }
  const QString notice = QStringLiteral("of at most %1 characters").arg(kMaxNoticeLine);
  const std::array keys = {
      Key{"ServerAddress", values.server_address, IsDottedAddress,
          QStringLiteral("an IPv4 address such as 127.0.0.1")},
      Key{"HomepageAddress", values.homepage_address, IsWebAddress,
          QStringLiteral("an http or https address with a host")},
      Key{"RightsLine", values.rights_notice[0], IsNoticeLine, notice},
      Key{"MakerName", values.rights_notice[1], IsNoticeLine, notice},
      Key{"Years", values.rights_notice[2], IsNoticeLine, notice},
  };
  for (const Key& key : keys) {
    const auto found = text.Find("Deployment", key.name);
    if (!found) {
      continue;
    }
    const QString value = FromUtf8(*found);
    if (!key.is_valid(value)) {
      return QStringLiteral("gives %1 the value %2, which is not %3.")
          .arg(FromUtf8(key.name), Quoted(value), key.form);
    }
    key.value = ToBytes(value);
  }
  return {};
}

QString Read(const QString& path, DeploymentValues& values) {
  if (!QFileInfo::exists(path)) {
    return {};
  }
  QFile file(path);
  if (!QFileInfo(path).isFile()) {
    return QStringLiteral("is not a file.");
  }
  if (!file.open(QIODevice::ReadOnly)) {
    return QStringLiteral("cannot be read: %1.").arg(file.errorString());
  }
  const QByteArray bytes = file.read(kMaxDeploymentFile + 1);
  if (bytes.size() > kMaxDeploymentFile) {
    return QStringLiteral("is longer than %1 bytes.").arg(kMaxDeploymentFile);
  }
  return ReadValues(IniText({bytes.constData(), static_cast<std::size_t>(bytes.size())}), values);
}

}  // namespace

DeploymentResult ReadDeploymentFile(const QString& file) {
  DeploymentResult reading;
  const QString fault = Read(file, reading.values);
  if (!fault.isEmpty()) {
    reading.error =
        ToBytes(QStringLiteral("The file \"%1\" %2").arg(QDir::toNativeSeparators(file), fault));
  }
  return reading;
}

}  // namespace korvanta

#include "ui/desktop/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>

#include "ui/text.h"

namespace korvanta {
namespace {

/// Far above what a thousand saved logins need; more is not a file of ours.
constexpr qint64 kLongestFile = qint64{4} * 1024 * 1024;

constexpr QFileDevice::Permissions kUserOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

constexpr std::string_view kEndOfName = "=[];#";

/// `special` are the characters to escape besides those that need it everywhere.
std::string Escape(std::string_view text, std::string_view special) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool is_outer_blank = byte == ' ' && (i == 0 || i + 1 == text.size());
    if (byte < 0x20 || byte > 0x7e || byte == '%' || is_outer_blank ||
        special.find(text[i]) != std::string_view::npos) {
      escaped += '%';
      escaped += kDigits[byte >> 4U];
      escaped += kDigits[byte & 0xfU];
    } else {
      escaped += text[i];
    }
  }
  return escaped;
}

/// A '%' without two hexadecimal digits behind it stands for itself.
std::string Unescape(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const std::string_view digits = text.substr(i).substr(1, 2);
    if (text[i] == '%' && digits.size() == 2 &&
        std::from_chars(digits.data(), digits.data() + 2, byte, 16).ptr == digits.data() + 2) {
      plain += static_cast<char>(byte);
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

QString FreeNameAside(const QString& file) {
  QString name = file + QStringLiteral(".bak");
  for (int number = 2; QFileInfo::exists(name); ++number) {
    name = file + QStringLiteral(".bak%1").arg(number);
  }
  return name;
}

/// Gives the file a second name, under which it stays when the first is replaced.
bool KeepAside(const QString& file) {
  const QString aside = FreeNameAside(file);
  std::error_code error;
  std::filesystem::create_hard_link(file.toStdU16String(), aside.toStdU16String(), error);
  return !error || QFile::copy(file, aside);
}

std::string Failure(const QString& file, const QString& reason) {
  return ToBytes(
      QStringLiteral("The settings could not be saved in \"%1\": %2.").arg(file, reason));
}

}  // namespace

QString IniSettingsStore::FileFor(const QString& program_name) {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Korvanta/%1.ini").arg(program_name);
}

IniSettingsStore::IniSettingsStore(QString file) : file_(std::move(file)) {}

std::string IniSettingsStore::Get(std::string_view section, std::string_view key,
                                  std::string_view default_text) {
  Load();
  const auto value = entries_.Find(Escape(section, kEndOfName), Escape(key, kEndOfName));
  return value ? Unescape(*value) : std::string(default_text);
}

void IniSettingsStore::Save(std::string_view section, std::string_view key, std::string_view text) {
  Load();
  entries_.Set(Escape(section, kEndOfName), Escape(key, kEndOfName), Escape(text, {}));
}

std::string IniSettingsStore::Commit() {
  Load();
  if (!read_failure_.empty()) {
    return read_failure_;
  }
  QDir().mkpath(QFileInfo(file_).path());
  QSaveFile file(file_);
  const std::string text = entries_.Text();
  const auto size = static_cast<qint64>(text.size());
  if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(kUserOnly) ||
      file.write(text.data(), size) != size || !file.flush()) {
    return Failure(file_, file.errorString());
  }
  if (is_damaged_ && !KeepAside(file_)) {
    return Failure(file_, QStringLiteral("the damaged file there cannot be kept aside"));
  }
  if (!file.commit()) {
    return Failure(file_, file.errorString());
  }
  is_damaged_ = false;
  return {};
}

void IniSettingsStore::Load() {
  if (std::exchange(is_loaded_, true) || !QFileInfo::exists(file_)) {
    return;
  }
  QFile file(file_);
  // Opening what is no file, such as a pipe, could wait forever.
  if (!QFileInfo(file_).isFile()) {
    read_failure_ = Failure(file_, QStringLiteral("it is not a file"));
  } else if (!file.open(QIODevice::ReadOnly)) {
    read_failure_ = Failure(file_, file.errorString());
  } else if (file.size() > kLongestFile) {
    is_damaged_ = true;
  } else {
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
      read_failure_ = Failure(file_, file.errorString());
      return;
    }
    entries_ = IniText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    is_damaged_ = entries_.MalformedLine().has_value();
  }
}

}  // namespace korvanta

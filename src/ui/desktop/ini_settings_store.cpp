#include "ui/desktop/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>
#include <utility>

#include "ui/desktop/disk_sync.h"
#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// Far above what a thousand saved logins need. A longer file was not written by this program.
constexpr qint64 kMaxSettingsFile = qint64{4} * 1024 * 1024;

constexpr QFileDevice::Permissions kUserOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QString FreeBackupName(const QString& file) {
  QString name = file + QStringLiteral(".bak");
  for (int number = 2; QFileInfo::exists(name); ++number) {
    name = file + QStringLiteral(".bak%1").arg(number);
  }
  return name;
}

/// Adds a hard link to the file, which survives when the file is replaced; copies it where the file
/// system has no hard links.
bool BackUp(const QString& file) {
  const QString backup = FreeBackupName(file);
  std::error_code error;
  std::filesystem::create_hard_link(file.toStdU16String(), backup.toStdU16String(), error);
  return !error || QFile::copy(file, backup);
}

/// The temporary file of a save, and so the new file, gets the permissions of the file it replaces.
/// That one is therefore created first, and no other user may read it.
bool MakePrivateFile(QFile& file) {
  if (!file.open(QIODevice::ReadWrite, kUserOnly)) {
    return false;
  }
  // Fails only where the file system has no permissions.
  file.setPermissions(kUserOnly);
  file.close();
  return true;
}

std::string Failure(const QString& file, const QString& reason) {
  return ToBytes(QStringLiteral("The settings could not be saved in \"%1\": %2.")
                     .arg(QDir::toNativeSeparators(file), reason));
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
  return entries_.Find(section, key).value_or(std::string(default_text));
}

void IniSettingsStore::Save(std::string_view section, std::string_view key, std::string_view text) {
  Load();
  entries_.Set(section, key, text);
}

std::string IniSettingsStore::Commit() {
  Load();
  if (!read_failure_.empty()) {
    return read_failure_;
  }
  const std::string text = entries_.Text();
  const auto size = static_cast<qint64>(text.size());
  if (size > kMaxSettingsFile) {
    return Failure(file_, QStringLiteral("they would take %1 bytes, and no more than %2 can be "
                                         "read back")
                              .arg(size)
                              .arg(kMaxSettingsFile));
  }
  // If this is a symbolic link, the file it points to is replaced, not the link.
  const QFileInfo info(file_);
  QDir().mkpath(info.path());
  QFile old_file(file_);
  if (!MakePrivateFile(old_file)) {
    return Failure(file_, old_file.errorString());
  }
  QSaveFile new_file(file_);
  if (!new_file.open(QIODevice::WriteOnly) || new_file.write(text.data(), size) != size ||
      !new_file.flush()) {
    return Failure(file_, new_file.errorString());
  }
  // Committing synchronizes as well, but ignores a failure and replaces the good file.
  if (!SyncToDisk(new_file)) {
    return Failure(file_, qt_error_string());
  }
  if (is_damaged_ && !BackUp(info.canonicalFilePath())) {
    return Failure(file_, QStringLiteral("the damaged file there cannot be backed up"));
  }
  if (!new_file.commit()) {
    return Failure(file_, new_file.errorString());
  }
  is_damaged_ = false;
  return {};
}

void IniSettingsStore::Load() {
  if (std::exchange(is_loaded_, true) || !QFileInfo::exists(file_)) {
    return;
  }
  QFile file(file_);
  // Opening something that is not a file, such as a pipe, could block forever.
  if (!QFileInfo(file_).isFile()) {
    read_failure_ = Failure(file_, QStringLiteral("it is not a file"));
  } else if (!file.open(QIODevice::ReadOnly)) {
    read_failure_ = Failure(file_, file.errorString());
  } else if (file.size() > kMaxSettingsFile) {
    is_damaged_ = true;
  } else {
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
      read_failure_ = Failure(file_, file.errorString());
      return;
    }
    entries_ = SettingsText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    is_damaged_ = entries_.IsDamaged();
  }
}

}  // namespace korvanta

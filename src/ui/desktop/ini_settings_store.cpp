#include "ui/desktop/ini_settings_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>
#include <utility>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

#include "ui/kit/text.h"

namespace korvanta {
namespace {

/// Far above what a thousand saved logins need; more is not a file of ours.
constexpr qint64 kLongestFile = qint64{4} * 1024 * 1024;

constexpr QFileDevice::Permissions kUserOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QString FreeNameAside(const QString& file) {
  QString name = file + QStringLiteral(".bak");
  for (int number = 2; QFileInfo::exists(name); ++number) {
    name = file + QStringLiteral(".bak%1").arg(number);
  }
  return name;
}

/// Gives the file a second name, under which it stays when the first is replaced, for its user
/// only.
bool KeepAside(const QString& file) {
  const QString aside = FreeNameAside(file);
  if (QFile::setPermissions(file, kUserOnly)) {
    std::error_code error;
    std::filesystem::create_hard_link(file.toStdU16String(), aside.toStdU16String(), error);
    if (!error) {
      return true;
    }
  }
  if (!QFile::copy(file, aside)) {
    return false;
  }
  // In vain only where the file system knows no permissions.
  QFile::setPermissions(aside, kUserOnly);
  return true;
}

/// The name under which the new file grows. Whatever has it is replaced, but a folder that holds
/// something stays and the name gets a number.
QString NameToGrow(const QString& file) {
  QString name = file + QStringLiteral(".unsaved");
  for (int number = 2; QFileInfo(name).isDir() && !QFileInfo(name).isSymLink(); ++number) {
    if (QDir().rmdir(name)) {
      break;
    }
    name = file + QStringLiteral(".unsaved%1").arg(number);
  }
  return name;
}

/// Whether what was written is on the disk, as far as the file system can tell.
bool Sync(const QFile& file) {
#ifdef Q_OS_UNIX
  return fsync(file.handle()) == 0 || errno == EINVAL;
#else
  return true;
#endif
}

/// Writes the text into a file of that name, in place of any that is there, which only the user can
/// ever read. Returns why it could not, an empty text when it could.
QString WriteAnew(const QString& name, const std::string& text) {
  const auto size = static_cast<qint64>(text.size());
  QFile::remove(name);
  QFile file(name);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kUserOnly)) {
    return file.errorString();
  }
  QString reason;
  if (file.write(text.data(), size) != size || !file.flush()) {
    reason = file.errorString();
  } else if (!Sync(file)) {
    reason = qt_error_string();
  }
  if (!reason.isEmpty()) {
    file.remove();
  }
  return reason;
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
  const QFileInfo info(file_);
  QDir().mkpath(info.path());
  // Behind a symbolic link it is the file that is replaced, not the link; a link that leads to no
  // file is replaced itself.
  const QString target = info.exists() ? info.canonicalFilePath() : file_;
  // A save that was killed leaves at most this one file, and the next save replaces it.
  const QString unsaved = NameToGrow(target);
  if (const QString reason = WriteAnew(unsaved, entries_.Text()); !reason.isEmpty()) {
    return Failure(file_, reason);
  }
  std::error_code error;
  if (is_damaged_ && !KeepAside(target)) {
    QFile::remove(unsaved);
    return Failure(file_, QStringLiteral("the damaged file there cannot be kept aside"));
  }
  std::filesystem::rename(unsaved.toStdU16String(), target.toStdU16String(), error);
  if (error) {
    QFile::remove(unsaved);
    return Failure(file_, QString::fromStdString(error.message()));
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
    entries_ = SettingsText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    is_damaged_ = entries_.IsDamaged();
  }
}

}  // namespace korvanta

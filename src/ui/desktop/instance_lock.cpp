#include "ui/desktop/instance_lock.h"

#include <QDir>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace korvanta {
namespace {

/// Between making the file and locking it with the system, a starting copy looks like a crashed
/// one; it gets this long, in milliseconds.
constexpr int kStartingTime = 100;

QString UserId() {
#ifdef Q_OS_UNIX
  return QString::number(getuid());
#else
  return qEnvironmentVariable("USERNAME");
#endif
}

QString LockFile(const QString& program_name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (!folder.isEmpty()) {
    return QStringLiteral("%1/Korvanta-%2.lock").arg(folder, program_name);
  }
  return QStringLiteral("%1/Korvanta-%2-%3.lock").arg(QDir::tempPath(), UserId(), program_name);
}

}  // namespace

InstanceLock::InstanceLock(const QString& program_name) : lock_(LockFile(program_name)) {
  // A long game is no reason to take a lock for abandoned.
  lock_.setStaleLockTime(0);
}

bool InstanceLock::IsAnotherRunning() {
  if (lock_.isLocked() || lock_.tryLock(kStartingTime) ||
      lock_.error() != QLockFile::LockFailedError) {
    return false;
  }
  // The file goes only where no process holds the system's lock.
  return !lock_.removeStaleLockFile() || !lock_.tryLock(0);
}

}  // namespace korvanta

#include "ui/desktop/lock_file.h"

#include <QDir>
#include <QStandardPaths>
#include <unistd.h>

namespace korvanta {

QString LockFileFor(const QString& program_name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (!folder.isEmpty()) {
    return QStringLiteral("%1/Korvanta-%2.lock").arg(folder, program_name);
  }
  return QStringLiteral("%1/Korvanta-%2-%3.lock")
      .arg(QDir::tempPath(), QString::number(getuid()), program_name);
}

}  // namespace korvanta

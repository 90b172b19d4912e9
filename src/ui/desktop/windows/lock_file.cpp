#include "ui/desktop/lock_file.h"

#include <QDir>
#include <QStandardPaths>

namespace korvanta {

/// Not in the folder for temporary files, of which each session of the user may have its own.
QString LockFileFor(const QString& program_name) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                         QStringLiteral("/Korvanta");
  QDir().mkpath(folder);
  return QStringLiteral("%1/%2.lock").arg(folder, program_name);
}

}  // namespace korvanta

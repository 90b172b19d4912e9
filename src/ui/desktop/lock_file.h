/// The path of the lock file that marks the program as running. Used by the instance lock.
#pragma once

#include <QString>

namespace korvanta {

/// A separate one for each user and each name of the program.
QString LockFileFor(const QString& program_name);

}  // namespace korvanta

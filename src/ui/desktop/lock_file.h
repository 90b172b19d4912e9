/// Where the file lies that shows that a program runs; the instance lock is the one user.
#pragma once

#include <QString>

namespace korvanta {

/// One of this user's alone, for each name of the program.
QString LockFileFor(const QString& program_name);

}  // namespace korvanta

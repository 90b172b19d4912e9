/// Detects whether the same user already runs the program.
#pragma once

#include <QLockFile>
#include <QString>

#include "platform/instance_guard.h"

namespace korvanta {

/// A lock file per user and name of the program. Its holder also holds a system lock on it, which
/// is released however the process ends; so a file left by a crash keeps nobody out, even if its
/// process id has been reused.
class InstanceLock final : public InstanceGuard {
 public:
  /// `program_name` is the base name of the executable.
  explicit InstanceLock(const QString& program_name);

  /// True only if another process holds the lock. False if no lock file can be created, so that the
  /// player can play.
  bool IsAnotherRunning() override;

 private:
  QLockFile lock_;
};

}  // namespace korvanta

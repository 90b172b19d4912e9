/// Finds out whether the same user runs the program already.
#pragma once

#include <QLockFile>
#include <QString>

#include "platform/instance_guard.h"

namespace korvanta {

/// A lock file of the user's, one for each name of the program. Its holder also locks it with the
/// system, which lets go when the holder ends in whatever way; so a file left behind by a crash
/// keeps nobody out, even when its process number belongs to another process by now.
class InstanceLock final : public InstanceGuard {
 public:
  /// `program_name` is the base name of the executable.
  explicit InstanceLock(const QString& program_name);

  /// True only when another process holds the lock. When no lock file can be made, nothing is known
  /// of others, and the player may play.
  bool IsAnotherRunning() override;

 private:
  QLockFile lock_;
};

}  // namespace korvanta

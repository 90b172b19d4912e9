#include "ui/desktop/instance_lock.h"

#include "ui/desktop/lock_file.h"

namespace korvanta {
namespace {

/// Between making the file and locking it with the system, a starting copy looks like a crashed
/// one; it gets this long, in milliseconds.
constexpr int kStartingTime = 100;

}  // namespace

InstanceLock::InstanceLock(const QString& program_name) : lock_(LockFileFor(program_name)) {
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

#include "ui/desktop/instance_lock.h"

#include "ui/desktop/lock_file.h"

namespace korvanta {
namespace {

/// Between creating the file and locking it, a starting instance looks like a crashed one; it is
/// given this long, in milliseconds.
constexpr int kStartUpTime = 100;

}  // namespace

InstanceLock::InstanceLock(const QString& program_name) : lock_(LockFileFor(program_name)) {
  // A lock does not become stale by age: a game may be long.
  lock_.setStaleLockTime(0);
}

bool InstanceLock::IsAnotherRunning() {
  if (lock_.tryLock(kStartUpTime) || lock_.error() != QLockFile::LockFailedError) {
    return false;
  }
  // The file is removed only if no process holds the system lock.
  return !lock_.removeStaleLockFile() || !lock_.tryLock(0);
}

}  // namespace korvanta

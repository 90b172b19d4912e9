/// Finds out whether another copy of the program runs.
#pragma once

namespace korvanta {

class InstanceGuard {
 public:
  InstanceGuard() = default;
  InstanceGuard(const InstanceGuard&) = delete;
  InstanceGuard& operator=(const InstanceGuard&) = delete;
  virtual ~InstanceGuard() = default;

  /// True when another instance of this program, by its file name and its user, is running.
  /// Otherwise this one counts as running from now on until the guard ends.
  virtual bool IsAnotherRunning() = 0;
};

}  // namespace korvanta

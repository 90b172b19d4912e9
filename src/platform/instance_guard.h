/// Detects whether another instance of the program is running.
#pragma once

namespace korvanta {

class InstanceGuard {
 public:
  InstanceGuard() = default;
  InstanceGuard(const InstanceGuard&) = delete;
  InstanceGuard& operator=(const InstanceGuard&) = delete;
  virtual ~InstanceGuard() = default;

  /// Whether the same user is running another instance of this executable, by its file name. If
  /// not, this instance counts as running until the guard is destroyed. Called once.
  virtual bool IsAnotherRunning() = 0;
};

}  // namespace korvanta

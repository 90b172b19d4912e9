/// A message bus of the test's own, on which programs show their windows to assistive programs, and
/// an assistive program that looks at them.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace korvanta::harness {

class AccessibilityBus {
 public:
  /// Ready for programs when it returns; HarnessError when it cannot be had.
  explicit AccessibilityBus(const QProcessEnvironment& environment);
  /// Ends it; what it has started ends with it.
  ~AccessibilityBus();
  AccessibilityBus(const AccessibilityBus&) = delete;
  AccessibilityBus& operator=(const AccessibilityBus&) = delete;

  /// What a program needs to be seen here.
  const QProcessEnvironment& environment() const { return environment_; }

  /// The controls of a process, each as its role, a tab and its name, in the order of its windows.
  QStringList ControlsOf(qint64 pid) const;

 private:
  QProcessEnvironment environment_;
  QProcess bus_;
};

}  // namespace korvanta::harness

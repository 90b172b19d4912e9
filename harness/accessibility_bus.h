/// A message bus of the test's own, on which programs show their windows to assistive programs, and
/// an assistive program that works with them.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include "harness/host.h"

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

  /// Waits for the button or tab of that name in the window with that title, and presses it.
  void Press(qint64 pid, const QString& window, const QString& name) const;
  /// Waits for the box of that name, and replaces its text.
  void Fill(qint64 pid, const QString& window, const QString& name, const QString& text) const;

 private:
  ToolResult Assist(const QStringList& arguments) const;

  QProcessEnvironment environment_;
  QProcess bus_;
};

}  // namespace korvanta::harness

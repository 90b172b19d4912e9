/// A private message bus on which programs expose their windows to assistive technology, and an
/// assistive program that operates them.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include "harness/host.h"

namespace korvanta::harness {

class AccessibilityBus {
 public:
  /// Returns when the bus is ready for programs; throws HarnessError if it cannot be started.
  explicit AccessibilityBus(const QProcessEnvironment& environment);
  /// Ends the bus and everything that it started.
  ~AccessibilityBus();
  AccessibilityBus(const AccessibilityBus&) = delete;
  AccessibilityBus& operator=(const AccessibilityBus&) = delete;

  /// The environment of a program that is to be found here.
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

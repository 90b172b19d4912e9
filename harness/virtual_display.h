/// An X display of the test's own, with a window manager on it: focus, activation and dialogs above
/// their owner work as on a desktop.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace korvanta::harness {

class VirtualDisplay {
 public:
  /// Ready for windows when it returns; HarnessError when the display or its window manager cannot
  /// be had.
  VirtualDisplay();
  /// Ends both, by their own processes.
  ~VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;

  /// What a program needs to open windows here.
  const QProcessEnvironment& environment() const { return environment_; }

 private:
  void StartServer();
  void StartWindowManager();

  QTemporaryDir home_;
  QProcessEnvironment environment_;
  QProcess server_;
  QProcess window_manager_;
};

}  // namespace korvanta::harness

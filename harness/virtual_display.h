/// A private X display with a window manager: focus, activation and dialogs above their owner work
/// as on a desktop.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace korvanta::harness {

class VirtualDisplay {
 public:
  /// Returns when windows can be opened; throws HarnessError if the display or its window manager
  /// cannot be started.
  VirtualDisplay();
  /// Ends both.
  ~VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;

  /// The environment of a program that is to open its windows here.
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

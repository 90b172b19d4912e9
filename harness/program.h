/// The built client as a player has it: a folder with the program and its files, a home of its own,
/// and running copies of the program.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include "harness/host.h"
#include "harness/virtual_display.h"

namespace korvanta::harness {

/// A copy of the built program with everything beside it, in a folder that goes with this object.
/// Its player's configuration and run-time folders are in there too.
class Installation {
 public:
  /// The deployment values name `server_address`.
  explicit Installation(const QString& server_address);

  QString program_file() const;
  /// The settings file of the player, which need not exist.
  QString settings_file() const;
  /// HarnessError when there is none.
  QByteArray Settings() const;
  void WriteSettings(const QByteArray& text) const;

  /// The player's environment on that display.
  QProcessEnvironment EnvironmentOn(const VirtualDisplay& display) const;

 private:
  QTemporaryDir folder_;
};

/// One running copy of the program; killed at the end of this object's life if it still runs.
class Program {
 public:
  Program(const Installation& installation, const VirtualDisplay& display);
  /// Any other program in the client's place.
  Program(const QString& file, const QStringList& arguments,
          const QProcessEnvironment& environment);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  qint64 pid() const { return process_.processId(); }
  bool IsRunning() const { return process_.state() != QProcess::NotRunning; }
  /// Waits for its orderly end. HarnessError when it goes on, or a signal ended it.
  int WaitForExit();
  /// As a power cut would.
  void Kill();
  /// What it has written to its standard outputs so far.
  QByteArray Output();

 private:
  QProcess process_;
  QByteArray output_;
};

}  // namespace korvanta::harness

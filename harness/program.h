/// The built client as a player has it: a folder with the program and its files, a home folder, and
/// running instances of the program.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include "harness/host.h"
#include "harness/virtual_display.h"

namespace korvanta::harness {

/// A copy of the built program with its files, in a folder that is deleted with this object. The
/// player's configuration and run-time folders are in it as well.
class Installation {
 public:
  /// The deployment values name `server_address`.
  explicit Installation(const QString& server_address);

  QString program_file() const;
  /// The settings file of the player, which need not exist.
  QString settings_file() const;
  /// Throws HarnessError if there is none.
  QByteArray Settings() const;
  void WriteSettings(const QByteArray& text) const;

  /// The player's environment on that display.
  QProcessEnvironment EnvironmentOn(const VirtualDisplay& display) const;

 private:
  QTemporaryDir folder_;
};

/// One running instance of the program; killed with this object if it is still running.
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
  /// Waits for it to exit. Throws HarnessError if it does not, or if a signal ended it.
  int WaitForExit();
  /// As a power cut would.
  void Kill();
  /// Everything on its standard output and error so far.
  QByteArray Output();

 private:
  QProcess process_;
  QByteArray output_;
};

}  // namespace korvanta::harness

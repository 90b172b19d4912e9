/// The built practice server as a running process on a loopback address of its own.
#pragma once

#include <QProcess>
#include <QString>

namespace korvanta::harness {

/// The path of the server's executable.
QString PracticeServerProgram();

class PracticeServer {
 public:
  /// Simulates no players unless `options` say otherwise. Returns when the server accepts
  /// connections; throws HarnessError with its output if it does not start.
  explicit PracticeServer(const QStringList& options = {});
  ~PracticeServer();
  PracticeServer(const PracticeServer&) = delete;
  PracticeServer& operator=(const PracticeServer&) = delete;

  const QString& address() const { return address_; }
  qint64 pid() const { return process_.processId(); }
  /// Asks it to end, as a service manager does.
  void AskToStop() { process_.terminate(); }
  /// Its exit status.
  int WaitForExit();
  int Stop() {
    AskToStop();
    return WaitForExit();
  }

 private:
  QString address_;
  QProcess process_;
};

}  // namespace korvanta::harness

/// The built practice server as a running process on a loopback address of its own.
#pragma once

#include <QProcess>
#include <QString>

namespace korvanta::harness {

/// The server's file name with its folder.
QString PracticeServerProgram();

class PracticeServer {
 public:
  /// Simulates no players unless `options` say otherwise. Accepts players when it returns;
  /// HarnessError with the server's own words when it does not
  /// come up.
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

#include "harness/practice_server.h"

#include "harness/host.h"

namespace korvanta::harness {

QString PracticeServerProgram() {
  return QString(KORVANTA_PROGRAM_FOLDER) + "/korvanta-practice-server";
}

PracticeServer::PracticeServer(const QStringList& options) : address_(UniqueLoopbackAddress()) {
  process_.setProcessEnvironment(BareEnvironment());
  process_.setProcessChannelMode(QProcess::MergedChannels);
  StartChild(process_, PracticeServerProgram(),
             QStringList{"--address", address_, "--players", "0"} + options);
  WaitUntil("the practice server listens", [this] {
    if (process_.state() == QProcess::NotRunning) {
      throw HarnessError("the practice server ended: " +
                         QString::fromUtf8(process_.readAll().trimmed()));
    }
    while (process_.canReadLine()) {
      if (process_.readLine().startsWith("Listening on ")) {
        return true;
      }
    }
    return false;
  });
}

int PracticeServer::WaitForExit() {
  WaitUntil("the practice server ends",
            [this] { return process_.state() == QProcess::NotRunning; });
  return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : 128;
}

PracticeServer::~PracticeServer() { EndChild(process_); }

}  // namespace korvanta::harness

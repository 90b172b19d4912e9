#include "tests/process/practice_server.h"

#include "tests/process/host.h"

namespace korvanta::process {

PracticeServer::PracticeServer(const QStringList& options) : address_(UniqueLoopbackAddress()) {
  process_.setProcessEnvironment(BareEnvironment());
  process_.setProcessChannelMode(QProcess::MergedChannels);
  StartChild(process_, QString(KORVANTA_PROGRAM_FOLDER) + "/korvanta-practice-server",
             QStringList{"--address", address_} + options);
  WaitUntil("the practice server listens", [this] {
    if (process_.state() == QProcess::NotRunning) {
      throw HarnessError("the practice server ended: " +
                         QString::fromUtf8(process_.readAll().trimmed()));
    }
    return process_.canReadLine();
  });
  if (const QByteArray line = process_.readLine().trimmed(); !line.startsWith("Listening on ")) {
    throw HarnessError("the practice server says: " + QString::fromUtf8(line));
  }
}

PracticeServer::~PracticeServer() { EndChild(process_); }

}  // namespace korvanta::process

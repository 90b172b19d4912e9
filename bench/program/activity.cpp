#include "bench/program/activity.h"

#include <QDir>
#include <QFile>

#include "bench/program/figures.h"
#include "harness/host.h"

namespace korvanta::bench {

QByteArray SystemFile(qint64 pid, const QString& name) {
  QFile file(QString("/proc/%1/%2").arg(pid).arg(name));
  if (!file.open(QIODevice::ReadOnly)) {
    throw harness::HarnessError(file.fileName() + " cannot be read");
  }
  return file.readAll();
}

Activity ActivityOf(qint64 pid) {
  const QDir threads(QString("/proc/%1/task").arg(pid));
  Activity activity;
  for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    ++activity.threads;
    activity.wakeups +=
        NumberIn(SystemFile(pid, "task/" + thread + "/status"), "voluntary_ctxt_switches");
    const QByteArray schedule = SystemFile(pid, "task/" + thread + "/schedstat");
    activity.cpu_seconds += schedule.left(schedule.indexOf(' ')).toDouble() * 1e-9;
  }
  return activity;
}

}  // namespace korvanta::bench

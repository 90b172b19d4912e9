/// What the operating system reports about a running process.
#pragma once

#include <QByteArray>
#include <QString>

namespace korvanta::bench {

/// A file of the process under /proc; throws HarnessError if the process is gone.
QByteArray SystemFile(qint64 pid, const QString& name);

/// Totals over all live threads.
struct Activity {
  int threads = 0;
  double wakeups = 0;      ///< times that a thread resumed after waiting
  double cpu_seconds = 0;  ///< to the nanosecond
};

Activity ActivityOf(qint64 pid);

}  // namespace korvanta::bench

/// What the operating system says of a running process.
#pragma once

#include <QByteArray>
#include <QString>

namespace korvanta::bench {

/// A file that the system keeps about the process; HarnessError when the process is gone.
QByteArray SystemFile(qint64 pid, const QString& name);

/// Of all threads that live, since they began.
struct Activity {
  int threads = 0;
  double wakeups = 0;      ///< a thread went on after it had waited
  double cpu_seconds = 0;  ///< to the nanosecond
};

Activity ActivityOf(qint64 pid);

}  // namespace korvanta::bench

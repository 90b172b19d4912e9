#include "harness/host.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace korvanta::harness {

void HandleEvents() {
  QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  QThread::msleep(5);
}

void WaitUntil(const QString& what, const std::function<bool()>& holds,
               std::chrono::milliseconds patience, const std::function<void()>& pause) {
  const QDeadlineTimer deadline(patience);
  while (!holds()) {
    if (deadline.hasExpired()) {
      throw HarnessError(QString("waited %1 ms in vain until %2").arg(patience.count()).arg(what));
    }
    pause();
  }
}

ToolResult RunTool(const QString& program, const QStringList& arguments,
                   const QProcessEnvironment& environment) {
  QProcess tool;
  tool.setProcessEnvironment(environment);
  StartChild(tool, program, arguments);
  if (!tool.waitForFinished(static_cast<int>(kPatience.count()))) {
    EndChild(tool);
    throw HarnessError(QString("%1 %2 does not end").arg(program, arguments.join(' ')));
  }
  return {tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : 128,
          tool.readAllStandardOutput(), tool.readAllStandardError()};
}

void StartChild(QProcess& child, const QString& program, const QStringList& arguments) {
  child.setChildProcessModifier([parent = ::getpid()] {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
      ::_exit(1);
    }
  });
  child.start(program, arguments);
  if (!child.waitForStarted()) {
    throw HarnessError(QString("%1 cannot be started: %2").arg(program, child.errorString()));
  }
}

void EndChild(QProcess& child) {
  if (child.state() == QProcess::NotRunning) {
    return;
  }
  child.terminate();
  if (!child.waitForFinished(3000)) {
    child.kill();
    child.waitForFinished();
  }
}

QString UniqueLoopbackAddress() {
  static int made = 0;
  const auto pid = static_cast<unsigned>(::getpid());
  return QString("127.%1.%2.%3")
      .arg(64 + (pid / 250 % 128))
      .arg(1 + (pid % 250))
      .arg(1 + (made++ % 250));
}

QProcessEnvironment BareEnvironment() {
  const QProcessEnvironment ours = QProcessEnvironment::systemEnvironment();
  QProcessEnvironment bare;
  for (const QString& name : ours.keys()) {
    if (name == "PATH" || name == "TMPDIR" || name.contains("SAN_OPTIONS")) {
      bare.insert(name, ours.value(name));
    }
  }
  bare.insert("LC_ALL", "C.UTF-8");
  return bare;
}

}  // namespace korvanta::harness

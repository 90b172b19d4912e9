#include "harness/accessibility_bus.h"

#include "harness/host.h"

namespace korvanta::harness {

AccessibilityBus::AccessibilityBus(const QProcessEnvironment& environment)
    : environment_(environment) {
  bus_.setProcessEnvironment(environment_);
  bus_.setStandardErrorFile(QProcess::nullDevice());
  StartChild(bus_, "dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
  WaitUntil("dbus-daemon names its address", [this] {
    if (bus_.state() == QProcess::NotRunning) {
      throw HarnessError("dbus-daemon ended before it was ready");
    }
    return bus_.canReadLine();
  });
  environment_.insert("DBUS_SESSION_BUS_ADDRESS", bus_.readLine().trimmed());
  environment_.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
}

AccessibilityBus::~AccessibilityBus() { EndChild(bus_); }

QStringList AccessibilityBus::ControlsOf(qint64 pid) const {
  const ToolResult result =
      RunTool("/usr/bin/python3", {KORVANTA_ACCESSIBLE_TREE, QString::number(pid)}, environment_);
  if (result.status != 0) {
    throw HarnessError("the windows cannot be walked: " + QString::fromUtf8(result.errors));
  }
  return QString::fromUtf8(result.output).split('\n', Qt::SkipEmptyParts);
}

}  // namespace korvanta::harness

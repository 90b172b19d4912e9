#include "harness/accessibility_bus.h"

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
  const ToolResult result = Assist({QString::number(pid)});
  if (result.status != 0) {
    throw HarnessError("the windows cannot be walked: " + QString::fromUtf8(result.errors));
  }
  return QString::fromUtf8(result.output).split('\n', Qt::SkipEmptyParts);
}

void AccessibilityBus::Press(qint64 pid, const QString& window, const QString& name) const {
  WaitUntil(name + " in " + window + " is pressed", [&] {
    return Assist({QString::number(pid), window, name}).status == 0;
  });
}

void AccessibilityBus::Fill(qint64 pid, const QString& window, const QString& name,
                            const QString& text) const {
  WaitUntil(name + " in " + window + " is filled", [&] {
    return Assist({QString::number(pid), window, name, text}).status == 0;
  });
}

ToolResult AccessibilityBus::Assist(const QStringList& arguments) const {
  return RunTool("/usr/bin/python3", QStringList(KORVANTA_ACCESSIBLE_TREE) + arguments,
                 environment_);
}

}  // namespace korvanta::harness

/// What the harness needs from the machine: waiting for conditions, running tools, and child
/// processes that do not outlive it.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <stdexcept>

namespace korvanta::harness {

/// A program or the machine does not behave as it should; `what()` is a sentence for the reader of
/// the output.
class HarnessError : public std::runtime_error {
 public:
  explicit HarnessError(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
};

constexpr std::chrono::milliseconds kPatience{30000};

/// Processes events, then sleeps for a moment.
void HandleEvents();

/// Calls `pause` until `holds` returns true. Throws HarnessError naming `what` after `patience`.
void WaitUntil(const QString& what, const std::function<bool()>& holds,
               std::chrono::milliseconds patience = kPatience,
               const std::function<void()>& pause = HandleEvents);

struct ToolResult {
  int status;  ///< exit status, 128 if a signal ended it
  QByteArray output;
  QByteArray errors;
};

/// Runs a program to its end without processing events. Throws HarnessError if it cannot be started
/// or takes longer than `kPatience`.
ToolResult RunTool(const QString& program, const QStringList& arguments,
                   const QProcessEnvironment& environment);

/// Starts a child process that the system kills when this process ends, however it ends.
void StartChild(QProcess& child, const QString& program, const QStringList& arguments);

/// Ends a child by SIGTERM, or by SIGKILL if that does not help.
void EndChild(QProcess& child);

/// "127.a.b.c", different at every call and in every process that runs at the same time.
QString UniqueLoopbackAddress();

/// PATH, the sanitizers' options, and settings that make programs behave alike on every machine; no
/// display, no home.
QProcessEnvironment BareEnvironment();

}  // namespace korvanta::harness

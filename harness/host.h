/// What the whole harness needs of the machine: waiting for conditions, running tools, keeping
/// children from outliving us.
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

/// A program or the machine does not do what it should; `what()` is a sentence for who reads the
/// output.
class HarnessError : public std::runtime_error {
 public:
  explicit HarnessError(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
};

constexpr std::chrono::milliseconds kPatience{30000};

/// Handles events, and rests for a moment.
void HandleEvents();

/// Pauses, which handles events unless it is told to do something else, until `holds`; HarnessError
/// naming `what` when the patience is over.
void WaitUntil(const QString& what, const std::function<bool()>& holds,
               std::chrono::milliseconds patience = kPatience,
               const std::function<void()>& pause = HandleEvents);

struct ToolResult {
  int status;  ///< exit status, 128 when a signal ended it
  QByteArray output;
  QByteArray errors;
};

/// Runs a program to its end, handling no events meanwhile. HarnessError when it cannot be started
/// or takes longer than the patience.
ToolResult RunTool(const QString& program, const QStringList& arguments,
                   const QProcessEnvironment& environment);

/// Starts a child that the system ends when this process ends, however it ends.
void StartChild(QProcess& child, const QString& program, const QStringList& arguments);

/// Ends a child by SIGTERM, and by SIGKILL when it does not go.
void EndChild(QProcess& child);

/// "127.a.b.c", different at every call and in every process that runs at the same time.
QString UniqueLoopbackAddress();

/// PATH, the sanitizers' options and what makes programs alike on every machine; no display, no
/// home.
QProcessEnvironment BareEnvironment();

}  // namespace korvanta::harness

/// What the practice server agrees with the operating system.
#pragma once

#include <QtGlobal>
#include <functional>

class QObject;

namespace korvanta::practice {

/// Calls `end` from the event loop each time the system asks the program to end, as long as
/// `context` lives: by SIGTERM or SIGINT on Linux, by Ctrl+C or Ctrl+Break on Windows. False when
/// the system does not let it. Called once, at the start.
bool OnEndRequest(QObject& context, std::function<void()> end);

/// Lets the program have as many connections as the system grants it.
void RaiseConnectionLimit();

/// Closing the socket will reset the connection instead of ending its stream.
void ResetWhenClosed(qintptr socket);

/// Ends this half of the connection behind what was sent; the other half can still be read.
void EndStream(qintptr socket);

}  // namespace korvanta::practice

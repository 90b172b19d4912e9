/// What the practice server's program agrees with the operating system.
#pragma once

#include <functional>

class QObject;

namespace korvanta::practice {

/// Calls `end` from the event loop each time the system asks the program to end, as long as
/// `context` lives: by SIGTERM or SIGINT on Linux, by Ctrl+C or Ctrl+Break on Windows. False when
/// the system does not let it. Called once, at the start.
bool OnEndRequest(QObject& context, std::function<void()> end);

/// Lets the program have as many connections as the system grants it.
void RaiseConnectionLimit();

}  // namespace korvanta::practice

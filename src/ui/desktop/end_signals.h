/// Lets the system end the program in good order, at a logout or from a command line.
#pragma once

#include <functional>

class QObject;

namespace korvanta {

/// Calls `end` from the event loop when the program is asked to end by SIGTERM, SIGINT or SIGHUP,
/// as long as `context` lives; the same signal once more ends it where it stands. Called once, at
/// the start. Does nothing but on Linux.
void OnEndSignal(QObject& context, std::function<void()> end);

}  // namespace korvanta

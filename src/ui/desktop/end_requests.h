/// Lets the system end the program in good order, at a logout or from a command line.
#pragma once

#include <functional>

class QObject;

namespace korvanta {

/// Calls `end` from the event loop when the system asks the program to end, as long as `context`
/// lives. Called once, at the start.
///
/// On Linux SIGTERM, SIGINT and SIGHUP ask; the same signal once more ends the program where
/// it stands. On Windows the end of the session asks, and ends the program when `end` returns.
void OnEndRequest(QObject& context, std::function<void()> end);

}  // namespace korvanta

/// Orderly termination on request of the system: at a logout, or from a terminal.
#pragma once

#include <functional>

class QObject;

namespace korvanta {

/// Calls `end` from the event loop when the system asks the program to end, as long as `context`
/// lives. To be called once, at the start.
///
/// On Linux the request is SIGTERM, SIGINT or SIGHUP; the same signal a second time ends the
/// program at once. On Windows it is the end of the session, and the program ends when `end`
/// returns.
void OnEndRequest(QObject& context, std::function<void()> end);

}  // namespace korvanta

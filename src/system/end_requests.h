/// Orderly termination on request of the system: at a logout, or from a terminal.
#pragma once

#include <functional>

class QObject;

namespace korvanta {

/// Calls `end` from the event loop when the system first asks the program to end, as long as
/// `context` lives. To be called once, at the start.
///
/// On Linux the request is SIGTERM, SIGINT or SIGHUP; the same signal a second time ends the
/// program at once. On Windows it is the end of the session, where the program ends when `end`
/// returns, and in a console Ctrl+C or Ctrl+Break, of which a second one ends it at once.
void OnEndRequest(QObject& context, std::function<void()> end);

}  // namespace korvanta

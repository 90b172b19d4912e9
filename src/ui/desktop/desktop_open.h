/// Carries out the desktop's "Open" action; the web opener is the one user.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace korvanta {

/// Opens an address that is safe to open. `done` is called at most once, from inside this call or
/// from the event loop while `context` lives. Its code is above 32 on success; 31 when no program
/// is there to open it, 2 or 3 when the file or path was not found, and any other code from 0 to 32
/// for other failures. What was started outlives `context`.
void OpenWithDesktop(const QString& address, QObject& context, std::function<void(int code)> done);

}  // namespace korvanta

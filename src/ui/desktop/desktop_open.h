/// Carries out the desktop's "Open" action. Used by the web opener.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace korvanta {

/// Opens an address that is safe to open. `done` is called at most once, during this call or from
/// the event loop while `context` lives. Its code is above 32 on success; 31 if no program can open
/// the address, 2 or 3 if the file or path was not found, and another code up to 32 for any other
/// failure. A started program outlives `context`.
void OpenWithDesktop(const QString& address, QObject& context, std::function<void(int code)> done);

}  // namespace korvanta

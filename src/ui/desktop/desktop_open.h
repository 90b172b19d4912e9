/// Carries out the desktop's "Open" action. Used by the web opener.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace korvanta {

/// Opens an address that is safe to open. `done` is called at most once, during this call or from
/// the event loop while `context` lives, with a code as in `WebOpener::Open`. A started program
/// outlives `context`.
void OpenWithDesktop(const QString& address, QObject& context, std::function<void(int code)> done);

}  // namespace korvanta

#include "ui/desktop/desktop_open.h"

#include <qt_windows.h>

namespace korvanta {

void OpenWithDesktop(const QString& address, QObject& /*context*/,
                     std::function<void(int code)> done) {
  const HINSTANCE code = ShellExecuteW(nullptr, L"open", address.toStdWString().c_str(), nullptr,
                                       nullptr, SW_SHOWNORMAL);
  done(static_cast<int>(reinterpret_cast<INT_PTR>(code)));
}

}  // namespace korvanta

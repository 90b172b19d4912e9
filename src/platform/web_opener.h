/// Hands a web address to the desktop.
#pragma once

#include <functional>
#include <string_view>

namespace korvanta {

class WebOpener {
 public:
  WebOpener() = default;
  WebOpener(const WebOpener&) = delete;
  WebOpener& operator=(const WebOpener&) = delete;
  virtual ~WebOpener() = default;

  /// Opens an http or https address. `done` is called at most once, from inside this call or from
  /// the event loop however much later, but never after the opener is gone. Its code is above 32
  /// on success; 31 when no program is there to open it, 2 or 3 when the file or path was not
  /// found, and any other code from 0 to 32 for other failures.
  virtual void Open(std::string_view address, std::function<void(int code)> done) = 0;
};

}  // namespace korvanta

/// Opens web addresses on the desktop.
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

  /// Opens an http or https address. `done` is called at most once, during this call or later from
  /// the event loop, but never after the opener is destroyed. Its code is above 32 on success; 31
  /// if no program can open the address, 2 or 3 if the file or path was not found, and another code
  /// up to 32 for any other failure.
  virtual void Open(std::string_view address, std::function<void(int code)> done) = 0;
};

}  // namespace korvanta

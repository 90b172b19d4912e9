/// Hands a web address to the desktop.
#pragma once

#include <string_view>

namespace korvanta {

class WebOpener {
 public:
  WebOpener() = default;
  WebOpener(const WebOpener&) = delete;
  WebOpener& operator=(const WebOpener&) = delete;
  virtual ~WebOpener() = default;

  /// Opens an http or https address. Returns a code above 32 on success; 31 when no program is
  /// there to open it, 2 or 3 when the file or path was not found, and any other code from 0 to 32
  /// for other failures.
  virtual int Open(std::string_view address) = 0;
};

}  // namespace korvanta

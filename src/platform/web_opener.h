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

  /// How an attempt ended, numbered as by ShellExecute. Other numbers occur; they are failures up
  /// to `LastFailure`.
  enum Code : int {
    FileNotFound = 2,
    PathNotFound = 3,
    Refused = 5,
    NoAssociation = 31,  ///< no program can open the address
    LastFailure = 32,
    Opened = 33,
  };

  /// Opens an http or https address. `done` is called at most once, during this call or later from
  /// the event loop, but never after the opener is destroyed.
  virtual void Open(std::string_view address, std::function<void(int code)> done) = 0;
};

}  // namespace korvanta

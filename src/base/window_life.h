/// The lifecycle of a single-instance window: absent, created but hidden, shown. The presenter of
/// every window except the main one owns one; the Qt window follows it.
#pragma once

#include <functional>
#include <utility>

#include "base/change_notice.h"

namespace korvanta {

class WindowLife {
 public:
  enum class State { Absent, Hidden, Shown };

  /// `load` runs each time the window is created, `unload` each time it ends, shown or not.
  explicit WindowLife(std::function<void()> load, std::function<void()> unload = {})
      : load_(std::move(load)), unload_(std::move(unload)) {}

  State state() const { return state_; }

  /// Creates the window hidden and runs its load step, unless the window exists.
  void Create() {
    if (state_ == State::Absent) {
      state_ = State::Hidden;
      load_();
    }
  }

  /// Shows the window, creating it first if absent; raises it if it is shown already.
  void Show() {
    Create();
    state_ = State::Shown;
    Notify(on_show);
  }

  /// Ends the window if it exists.
  void Unload() {
    if (state_ == State::Absent) {
      return;
    }
    const bool was_shown = state_ == State::Shown;
    state_ = State::Absent;
    Notify(unload_);
    if (was_shown) {
      Notify(on_unload);
    }
  }

  std::function<void()> on_show;    ///< show the window, or raise it
  std::function<void()> on_unload;  ///< take the shown window off the screen

 private:
  std::function<void()> load_;
  std::function<void()> unload_;
  State state_ = State::Absent;
};

}  // namespace korvanta

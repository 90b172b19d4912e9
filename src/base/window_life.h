/// The life of a single-instance window: absent, created unseen, shown. The presenter of every
/// window but the main one owns one; the Qt half only follows it.
#pragma once

#include <functional>
#include <utility>

#include "base/change_notice.h"

namespace korvanta {

class WindowLife {
 public:
  enum class State { Absent, Hidden, Shown };

  /// `load` is the window's load step, run once each time the window is created; `unload` what it
  /// must undo, run once each time the window ends, shown or not.
  explicit WindowLife(std::function<void()> load, std::function<void()> unload = {})
      : load_(std::move(load)), unload_(std::move(unload)) {}

  State state() const { return state_; }

  /// Creates the window unseen when it is absent, running its load step; otherwise does nothing.
  void Create() {
    if (state_ == State::Absent) {
      state_ = State::Hidden;
      load_();
    }
  }

  /// Shows the window, creating it first when it is absent; a shown one comes forward.
  void Show() {
    Create();
    state_ = State::Shown;
    Notify(on_show);
  }

  /// Ends the window; an absent one is skipped.
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

  std::function<void()> on_show;    ///< show the window, or bring the shown one forward
  std::function<void()> on_unload;  ///< take the shown window off the screen for good

 private:
  std::function<void()> load_;
  std::function<void()> unload_;
  State state_ = State::Absent;
};

}  // namespace korvanta

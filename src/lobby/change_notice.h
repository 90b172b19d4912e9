/// Tells a window's listener once that a handler changed the window's state; the plain halves of
/// the side windows use it in their handlers of inbound messages.
#pragma once

#include <functional>

namespace korvanta {

/// Lives as long as the handler does, also when that ends early with an error. A state that is then
/// what it was when the notice was made tells nothing.
template <typename State>
class ChangeNotice {
 public:
  /// All of them outlive the notice. `listener` may be empty.
  ChangeNotice(const State& state, const std::function<void()>& listener)
      : state_(state), before_(state), listener_(listener) {}
  ChangeNotice(const ChangeNotice&) = delete;
  ChangeNotice& operator=(const ChangeNotice&) = delete;
  ~ChangeNotice() {
    if (listener_ && !(state_ == before_)) {
      listener_();
    }
  }

 private:
  const State& state_;
  const State before_;
  const std::function<void()>& listener_;
};

}  // namespace korvanta

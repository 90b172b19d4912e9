/// How everything with a state tells its one listener of a change.
#pragma once

#include <functional>
#include <type_traits>

namespace korvanta {

/// Calls the listener, when there is one.
template <typename... Args>
void Tell(const std::function<void(Args...)>& listener, std::type_identity_t<Args>... args) {
  if (listener) {
    listener(args...);
  }
}

/// Tells once that a handler changed a state. Lives as long as the handler does, also when that
/// ends early with an error. A state that is then what it was when the notice was made tells
/// nothing.
template <typename State>
class ChangeNotice {
 public:
  /// All of them outlive the notice. `listener` may be empty.
  ChangeNotice(const State& state, const std::function<void()>& listener)
      : state_(state), before_(state), listener_(listener) {}
  ChangeNotice(const ChangeNotice&) = delete;
  ChangeNotice& operator=(const ChangeNotice&) = delete;
  ~ChangeNotice() {
    if (!(state_ == before_)) {
      Tell(listener_);
    }
  }

 private:
  const State& state_;
  const State before_;
  const std::function<void()>& listener_;
};

}  // namespace korvanta

/// How everything with a state notifies its one listener of a change.
#pragma once

#include <functional>
#include <type_traits>

namespace korvanta {

/// Calls the listener, when there is one.
template <typename... Args>
void Notify(const std::function<void(Args...)>& listener, std::type_identity_t<Args>... args) {
  if (listener) {
    listener(args...);
  }
}

/// Notifies when it goes out of scope, be it by an exception, if the state then differs from what
/// it was when the notice was made.
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
      Notify(listener_);
    }
  }

 private:
  const State& state_;
  const State before_;
  const std::function<void()>& listener_;
};

}  // namespace korvanta

/// Change notification: an object with state has one listener, a plain callback.
#pragma once

#include <functional>
#include <type_traits>

namespace korvanta {

/// Calls the listener if there is one.
template <typename... Args>
void Notify(const std::function<void(Args...)>& listener, std::type_identity_t<Args>... args) {
  if (listener) {
    listener(args...);
  }
}

/// Notifies the listener at the end of its scope, even one left by an exception, if the state has
/// changed since the notice was constructed.
template <typename State>
class ChangeNotice {
 public:
  /// Both must outlive the notice. `listener` may be empty.
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

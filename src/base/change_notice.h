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

/// Notifies once at its end, also when that is an error's, if the state is then another than it was
/// when the notice was made. Lives as long as the handler that changes the state.
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

/// What a client's windows have drawn: each part is redrawn when the client says that it changed,
/// as its widget does, and must then never be out of date. The client's fuzz target watches it.
#pragma once

#include <array>
#include <bit>
#include <functional>
#include <string_view>
#include <vector>

#include "client/client.h"

namespace korvanta::fuzz {

/// All six, to be compared.
inline auto OptionsOf(const Options& options) {
  return std::bit_cast<std::array<bool, 6>>(options);
}

class DrawnClient {
 public:
  /// Listens to everything but to the closing of the main window and to the message view.
  explicit DrawnClient(Client& client);
  DrawnClient(const DrawnClient&) = delete;
  DrawnClient& operator=(const DrawnClient&) = delete;

  /// The user changed a box of a side window, which shows it already; nobody is notified of that.
  void UserTyped() const;

  void CheckUpToDate() const;

 private:
  struct Part {
    std::string_view name;
    std::function<bool()> is_up_to_date;
  };

  /// Watches what `read` returns; the answer redraws it.
  template <typename Read>
  std::function<void()> Watch(std::string_view name, Read read);
  /// Likewise what a side window shows, as long as it is shown.
  template <typename Presenter, typename Read>
  std::function<void()> WatchWindow(std::string_view name, Presenter& presenter, Read read);

  std::vector<Part> parts_;
  std::vector<std::function<void()>> typed_in_;  ///< redraw what the user types in
};

}  // namespace korvanta::fuzz

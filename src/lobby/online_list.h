/// The players online, as the server last listed them. Shown by `lstOnline`.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/colour.h"
#include "protocol/receivers.h"

namespace korvanta {

class OnlineList final : public OnlineListReceiver {
 public:
  struct Entry {
    std::string_view name;  ///< the views are valid until the next rebuild
    Colour colour;          ///< of the name
    std::string_view level;
    bool marked = false;
  };

  OnlineList() = default;
  OnlineList(const OnlineList&) = delete;
  OnlineList& operator=(const OnlineList&) = delete;

  /// In the order received.
  const std::vector<Entry>& entries() const { return entries_; }

  /// Index of the selected entry in `entries()`; a rebuild clears it.
  std::optional<std::size_t> selected() const { return selected_; }
  /// Called by the widget when the user selects an entry; does not notify.
  void Select(std::optional<std::size_t> index) { selected_ = index; }

  /// Rebuilds the list from the server's message. Throws MessageError at the first malformed
  /// record; what was built by then, that entry included, stays.
  void ShowOnlineList(std::string_view payload) override;

  std::function<void()> on_changed;  ///< the whole list was rebuilt

 private:
  void Rebuild();

  std::string payload_;
  std::vector<Entry> entries_;
  std::optional<std::size_t> selected_;
};

/// The colour of a name by its category, a number in decimal text; black for numbers without a
/// colour. Throws MessageError if the text is not a number.
Colour OnlineColour(std::string_view category);

}  // namespace korvanta

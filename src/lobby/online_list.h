/// The players online, as the server listed them last. `lstOnline` draws from it.
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
    std::size_t position;   ///< of its record in the message, from 0, empty records included
    std::string_view name;  ///< the views are valid until the next rebuild
    Colour colour;          ///< of the name
    std::string_view level;
    bool marked = false;

    std::string Key() const { return "O" + std::to_string(position); }
  };

  OnlineList() = default;
  OnlineList(const OnlineList&) = delete;
  OnlineList& operator=(const OnlineList&) = delete;

  /// In the order received.
  const std::vector<Entry>& entries() const { return entries_; }

  /// Index of the selected entry in `entries()`; a rebuild forgets it.
  std::optional<std::size_t> selected() const { return selected_; }
  /// Called by the list's widget when the user selects. Raises no `on_changed`.
  void Select(std::optional<std::size_t> index) { selected_ = index; }

  /// Rebuilds the list from the server's message. Raises MessageError at the first broken record;
  /// what was built until then, the broken entry included, stays.
  void ShowOnlineList(std::string_view payload) override;

  std::function<void()> on_changed;  ///< the whole list was rebuilt

 private:
  void Rebuild();

  std::string payload_;
  std::vector<Entry> entries_;
  std::optional<std::size_t> selected_;
};

/// The colour of a name by its category, a number in decimal text. Raises MessageError when the
/// text is not a number; numbers without a colour are black.
Colour OnlineColour(std::string_view category);

}  // namespace korvanta

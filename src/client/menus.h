/// The menu bar of the main window and its two popup menus, as data from which `frmMain` builds
/// them.
#pragma once

#include <span>
#include <string_view>

#include "protocol/options.h"

namespace korvanta {

class Client;

struct MenuItem {
  /// What a click does.
  using Command = void (*)(Client& client);

  /// `shortcut` is a key sequence such as "Ctrl+E" or "F1", or empty; a check mark shows
  /// `checked_option`.
  constexpr MenuItem(std::string_view item_name, std::string_view item_caption,
                     std::string_view item_shortcut, Command on_click,
                     bool Options::*checked_option = nullptr)
      : name(item_name),
        caption(item_caption),
        shortcut(item_shortcut),
        click(on_click),
        option(checked_option) {}

  static constexpr MenuItem Separator(std::string_view name) { return {name, "-", "", nullptr}; }
  constexpr bool IsSeparator() const { return click == nullptr; }

  std::string_view name;
  std::string_view caption;
  std::string_view shortcut;
  Command click;
  bool Options::*option;
};

struct Menu {
  std::string_view name;
  std::string_view caption;  ///< '&' precedes the mnemonic
  std::span<const MenuItem> items;
};

/// The menu bar, left to right.
std::span<const Menu> MenuBar();

/// Popup of the research board.
const Menu& PopMenu();

/// Popup of the online list.
const Menu& WarMenu();

/// The item's current caption; that of the connect item depends on the connection.
std::string_view CaptionOf(const MenuItem& item, const Client& client);

}  // namespace korvanta

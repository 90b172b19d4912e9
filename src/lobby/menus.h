/// The menu tree of the main window and its two popup menus, as data, with the state of its items.
/// The main window's Qt half draws menus from it and reports clicks to it.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "protocol/options.h"

namespace korvanta {

struct MenuItem {
  std::string_view name;
  std::string_view caption;
  std::string_view shortcut = {};   ///< such as "Ctrl+E" or "F1"; empty for none
  bool Options::*option = nullptr;  ///< set for an item with a check mark

  bool IsSeparator() const { return caption == "-"; }
};

struct Menu {
  std::string_view name;
  std::string_view caption;  ///< '&' marks the letter behind it as the access key
  std::span<const MenuItem> items;
};

/// The menu bar, left to right.
std::span<const Menu> MenuBar();

/// Popup of the research board.
const Menu& PopMenu();

/// Popup of the online list.
const Menu& WarMenu();

class Menus {
 public:
  explicit Menus(Options& options) : options_(options) {}

  /// What a click on the item does, for an option after its check mark was toggled; set by the
  /// client.
  void SetAction(std::string_view item, std::function<void()> action);

  /// A click on the item: toggles the check mark of an option, then runs the action if it has one.
  void Click(const MenuItem& item);

  bool IsChecked(const MenuItem& item) const {
    return item.option != nullptr && options_.*item.option;
  }

  /// The caption at this moment: that of the connect item follows the connection.
  std::string_view Caption(const MenuItem& item) const;
  void SetConnectCaption(std::string_view caption);

  /// A caption or a check mark changed.
  std::function<void()> on_changed;

 private:
  Options& options_;
  std::string connect_caption_;
  std::map<std::string_view, std::function<void()>> actions_;
};

}  // namespace korvanta

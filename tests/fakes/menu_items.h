/// The items of all menus, for those that click on them without a window.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "client/menus.h"

namespace korvanta::fakes {

inline std::vector<Menu> AllMenus() {
  std::vector<Menu> menus(MenuBar().begin(), MenuBar().end());
  menus.push_back(PopMenu());
  menus.push_back(WarMenu());
  return menus;
}

/// An item on which one can click.
inline const MenuItem& ItemNamed(std::string_view name) {
  for (const Menu& menu : AllMenus()) {
    for (const MenuItem& item : menu.items) {
      if (item.name == name && !item.IsSeparator()) {
        return item;
      }
    }
  }
  throw std::logic_error("no menu item " + std::string(name));
}

}  // namespace korvanta::fakes

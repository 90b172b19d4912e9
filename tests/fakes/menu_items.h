/// The items of all menus, for those that click on them without a window.
#pragma once

#include <algorithm>
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

/// Those on which one can click.
inline std::vector<const MenuItem*> AllItems() {
  std::vector<const MenuItem*> items;
  for (const Menu& menu : AllMenus()) {
    for (const MenuItem& item : menu.items) {
      if (!item.IsSeparator()) {
        items.push_back(&item);
      }
    }
  }
  return items;
}

inline const MenuItem& ItemNamed(std::string_view name) {
  const auto items = AllItems();
  const auto found = std::ranges::find(items, name, &MenuItem::name);
  return found != items.end() ? **found : throw std::logic_error("no item " + std::string(name));
}

}  // namespace korvanta::fakes

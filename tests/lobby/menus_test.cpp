#include "lobby/menus.h"

#include <gmock/gmock.h>

namespace korvanta {
namespace {

using testing::ElementsAre;

TEST(Menus, EveryMenuReadsAsWritten) {
  std::vector<std::string> lines;
  std::vector<Menu> menus(MenuBar().begin(), MenuBar().end());
  menus.push_back(PopMenu());
  menus.push_back(WarMenu());
  for (const Menu& menu : menus) {
    lines.emplace_back(menu.caption);
    for (const MenuItem& item : menu.items) {
      lines.push_back("  " + std::string(item.name) + " " + std::string(item.caption) +
                      (item.shortcut.empty() ? "" : " " + std::string(item.shortcut)) +
                      (item.option != nullptr ? " [option]" : ""));
    }
  }
  EXPECT_THAT(
      lines,
      ElementsAre("&File", "  mnuDisCon Connect/Disconnect F1", "  mnuSplit1 -",
                  "  mnuExit Exit F12", "&Game", "  mnuCity Enter Game Ctrl+E",
                  "  mAuto Auto Ready Ctrl+M [option]", "  mnuTournament Tournament Ctrl+T",
                  "G&lobal", "  mnuLookup Statistics Lookup Ctrl+L", "&Options",
                  "  mnuAutoChat Auto Chat [option]", "  mSounds Sounds [option]", "  mnuSplit5 -",
                  "  mnuScrollLock Scroll Lock Ctrl+K [option]",
                  "  mnuFilter Language Filter Ctrl+F [option]", "  mnuClear Clear Window F6",
                  "  mnuSplit9 -", "  mnuLogins Ignore Logins [option]", "&Help",
                  "  mnuHelpSite Korvanta Help F2", "  mnuNews News F3", "  mnuSplit3 -",
                  "  mnuHomepage Homepage F8", "PopMenu", "  mResearch Research This",
                  "  mnuInfo Information", "WarMenu", "  mnuAttack Attack Player",
                  "  mInfo Statistics", "  mAlliance Form Alliance"));
}

TEST(Menus, EachOptionTogglesItsOwnCheckMarkAndNothingElse) {
  const std::map<std::string_view, bool Options::*> members = {
      {"mAuto", &Options::mAuto},         {"mnuAutoChat", &Options::mnuAutoChat},
      {"mSounds", &Options::mSounds},     {"mnuScrollLock", &Options::mnuScrollLock},
      {"mnuFilter", &Options::mnuFilter}, {"mnuLogins", &Options::mnuLogins}};
  for (const Menu& menu : MenuBar()) {
    for (const MenuItem& item : menu.items) {
      Options options;
      Menus menus(options);
      menus.Click(item);
      for (const auto& [name, member] : members) {
        EXPECT_EQ(options.*member, Options().*member != (name == item.name)) << name;
      }
      EXPECT_EQ(menus.IsChecked(item),
                members.contains(item.name) && options.*members.at(item.name));
    }
  }
}

}  // namespace
}  // namespace korvanta

#include "client/menus.h"

#include <gmock/gmock.h>

#include "client/client.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/menu_items.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

TEST(Menus, EveryMenuReadsAsWritten) {
  std::vector<std::string> lines;
  for (const Menu& menu : fakes::AllMenus()) {
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
  for (const auto& [name, member] : members) {
    fakes::FakePlatform platform;
    Client client(platform.platform(), {});
    const MenuItem& item = fakes::ItemNamed(name);
    EXPECT_EQ(item.option, member) << name;
    item.click(client);
    for (const auto& [other, option] : members) {
      EXPECT_EQ(client.options.*option, Options().*option != (other == name)) << name << other;
    }
  }
}

}  // namespace
}  // namespace korvanta

#include "client/menus.h"

#include <gmock/gmock.h>

#include "client/client.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/menu_items.h"

namespace korvanta {
namespace {

/// What leaves a client at a click on the item, with a box and a player chosen before and every
/// question answered with Yes.
std::string SentBy(const MenuItem& item) {
  fakes::FakePlatform platform;
  Client client(platform.platform(), {});
  platform.socket.connected = client.values.IsConnected = true;
  platform.message_box.answers = {true};
  client.values.CurrentUserName = "Me";
  client.board_actions.BoxRightClicked(TopicCode::Industry, 3);
  client.board_actions.SelectedPlayer = "Bob";
  item.click(client);
  const auto& opened = platform.web.opened;
  return platform.socket.TakeReadable() + (opened.empty() ? "" : opened.front());
}

TEST(Menus, EveryMenuReadsAsWrittenAndSendsWhatItSays) {
  std::vector<std::string> lines;
  for (const Menu& menu : fakes::AllMenus()) {
    lines.emplace_back(menu.caption);
    for (const MenuItem& item : menu.items) {
      std::string& line = lines.emplace_back();
      for (const std::string_view text : {item.name, item.caption, item.shortcut}) {
        line.append(text).append("|");
      }
      line += item.option != nullptr ? "option" : item.IsSeparator() ? "" : SentBy(item);
    }
  }
  EXPECT_THAT(
      lines,
      testing::ElementsAre(
          "&File", "mnuDisCon|Connect/Disconnect|F1|[dis];", "mnuSplit1|-||", "mnuExit|Exit|F12|",
          "&Game", "mnuCity|Enter Game|Ctrl+E|[jon];", "mAuto|Auto Ready|Ctrl+M|option",
          "mnuTournament|Tournament|Ctrl+T|[tif];", "G&lobal",
          "mnuLookup|Statistics Lookup|Ctrl+L|[bre]Me;", "&Options",
          "mnuAutoChat|Auto Chat||option", "mSounds|Sounds||option", "mnuSplit5|-||",
          "mnuScrollLock|Scroll Lock|Ctrl+K|option", "mnuFilter|Language Filter|Ctrl+F|option",
          "mnuClear|Clear Window|F6|", "mnuSplit9|-||", "mnuLogins|Ignore Logins||option", "&Help",
          "mnuHelpSite|Korvanta Help|F2|http://korvanta.example/Korvanta/",
          "mnuNews|News|F3|[nws];", "mnuSplit3|-||",
          "mnuHomepage|Homepage|F8|http://korvanta.example/Korvanta/", "PopMenu",
          "mResearch|Research This||[upg]2,3,;", "mnuInfo|Information||[inf]2;", "WarMenu",
          "mnuAttack|Attack Player||[att]Bob;", "mInfo|Statistics||[bre]Me;[bre]Bob;",
          "mAlliance|Form Alliance||[aly]Bob;"));
}

TEST(Menus, EachOptionTogglesItsOwnCheckMarkAndNothingElse) {
  const std::map<std::string_view, bool Options::*> members = {
      {"mAuto", &Options::mAuto},         {"mnuAutoChat", &Options::mnuAutoChat},
      {"mSounds", &Options::mSounds},     {"mnuScrollLock", &Options::mnuScrollLock},
      {"mnuFilter", &Options::mnuFilter}, {"mnuLogins", &Options::mnuLogins}};
  for (const auto& [name, member] : members) {
    fakes::FakePlatform platform;
    Client client(platform.platform(), {});
    int view_changes = 0;
    client.message_view.on_changed = [&](const MessageView::Change&) { ++view_changes; };
    const MenuItem& item = fakes::ItemNamed(name);
    EXPECT_EQ(item.option, member) << name;
    item.click(client);
    for (const auto& [other, option] : members) {
      EXPECT_EQ(client.options.*option, Options().*option != (other == name)) << name << other;
    }
    EXPECT_EQ(view_changes, name == "mnuScrollLock" ? 1 : 0) << name;
  }
}

}  // namespace
}  // namespace korvanta

#include "client/menus.h"

#include <gmock/gmock.h>

#include "client/client.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/menu_items.h"

namespace korvanta {
namespace {

constexpr std::pair<std::string_view, bool Options::*> kOptions[] = {
    {"mAuto", &Options::mAuto},         {"mnuAutoChat", &Options::mnuAutoChat},
    {"mSounds", &Options::mSounds},     {"mnuScrollLock", &Options::mnuScrollLock},
    {"mnuFilter", &Options::mnuFilter}, {"mnuLogins", &Options::mnuLogins}};

/// What a click on the item does, with a line written, a box and a player chosen before and every
/// question answered with Yes: whether the view changes, which options it toggles, each marked when
/// the item shows it, and what leaves.
std::string DoneBy(const MenuItem& item) {
  fakes::FakePlatform platform;
  Client client(platform.platform(), {});
  platform.socket.connected = client.values.IsConnected = true;
  platform.message_box.answers = {true};
  client.values.CurrentUserName = "Me";
  client.board_actions.BoxRightClicked(TopicCode::Industry, 3);
  client.board_actions.SelectedPlayer = "Bob";
  client.message_view.AppendMessage("line", MessageKind::Status);
  std::string done;
  client.message_view.on_changed = [&done](const auto&) { done += "view "; };
  item.click(client);
  for (const auto& [name, option] : kOptions) {
    if (client.options.*option != Options().*option) {
      done.append(name).append(option == item.option ? " shown" : "");
    }
  }
  const auto& opened = platform.web.opened;
  return done + platform.socket.TakeReadable() + (opened.empty() ? "" : opened.front());
}

TEST(Menus, EveryMenuReadsAsWrittenAndDoesWhatItSays) {
  std::vector<std::string> lines;
  for (const Menu& menu : fakes::AllMenus()) {
    lines.emplace_back(menu.caption);
    for (const MenuItem& item : menu.items) {
      std::string& line = lines.emplace_back();
      for (const std::string_view text : {item.name, item.caption, item.shortcut}) {
        line.append(text).append("|");
      }
      line += item.IsSeparator() ? "" : DoneBy(item);
    }
  }
  EXPECT_THAT(
      lines,
      testing::ElementsAre(
          "&File", "mnuDisCon|Connect/Disconnect|F1|[dis];", "mnuSplit1|-||", "mnuExit|Exit|F12|",
          "&Game", "mnuCity|Enter Game|Ctrl+E|[jon];", "mAuto|Auto Ready|Ctrl+M|mAuto shown",
          "mnuTournament|Tournament|Ctrl+T|[tif];", "G&lobal",
          "mnuLookup|Statistics Lookup|Ctrl+L|[bre]Me;", "&Options",
          "mnuAutoChat|Auto Chat||mnuAutoChat shown", "mSounds|Sounds||mSounds shown",
          "mnuSplit5|-||", "mnuScrollLock|Scroll Lock|Ctrl+K|view mnuScrollLock shown",
          "mnuFilter|Language Filter|Ctrl+F|mnuFilter shown", "mnuClear|Clear Window|F6|view ",
          "mnuSplit9|-||", "mnuLogins|Ignore Logins||mnuLogins shown", "&Help",
          "mnuHelpSite|Korvanta Help|F2|http://korvanta.example/Korvanta/",
          "mnuNews|News|F3|[nws];", "mnuSplit3|-||",
          "mnuHomepage|Homepage|F8|http://korvanta.example/Korvanta/", "PopMenu",
          "mResearch|Research This||[upg]2,3,;", "mnuInfo|Information||[inf]2;", "WarMenu",
          "mnuAttack|Attack Player||[att]Bob;", "mInfo|Statistics||[bre]Me;[bre]Bob;",
          "mAlliance|Form Alliance||[aly]Bob;"));
}

}  // namespace
}  // namespace korvanta

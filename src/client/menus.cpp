#include "client/menus.h"

#include <array>

#include "client/client.h"

namespace korvanta {
namespace {

constexpr std::string_view kConnectItem = "mnuDisCon";

/// An item whose check mark a click toggles.
template <bool Options::*option>
constexpr MenuItem OptionItem(std::string_view name, std::string_view caption,
                              std::string_view shortcut = "") {
  return {name, caption, shortcut, [](Client& client) { client.main_window.Toggle(option); },
          option};
}

constexpr std::array kFileItems = {
    MenuItem{kConnectItem, "Connect/Disconnect", "F1",
             [](Client& client) { client.login_dialog.ConnectItemClicked(); }},
    MenuItem::Separator("mnuSplit1"),
    MenuItem{"mnuExit", "Exit", "F12", [](Client& client) { client.main_window.Close(); }},
};

constexpr std::array kGameItems = {
    MenuItem{"mnuCity", "Enter Game", "Ctrl+E",
             [](Client& client) { client.board_actions.EnterGame(); }},
    OptionItem<&Options::mAuto>("mAuto", "Auto Ready", "Ctrl+M"),
    MenuItem{"mnuTournament", "Tournament", "Ctrl+T",
             [](Client& client) { client.tournament.ShowTournamentWindow(); }},
};

constexpr std::array kGlobalItems = {
    MenuItem{"mnuLookup", "Statistics Lookup", "Ctrl+L",
             [](Client& client) { client.statistics.window().Show(); }},
};

constexpr std::array kOptionsItems = {
    OptionItem<&Options::mnuAutoChat>("mnuAutoChat", "Auto Chat"),
    OptionItem<&Options::mSounds>("mSounds", "Sounds"),
    MenuItem::Separator("mnuSplit5"),
    MenuItem{"mnuScrollLock", "Scroll Lock", "Ctrl+K",
             [](Client& client) {
               client.main_window.Toggle(&Options::mnuScrollLock);
               client.message_view.ScrollLockToggled();
             },
             &Options::mnuScrollLock},
    OptionItem<&Options::mnuFilter>("mnuFilter", "Language Filter", "Ctrl+F"),
    MenuItem{"mnuClear", "Clear Window", "F6", [](Client& client) { client.message_view.Clear(); }},
    MenuItem::Separator("mnuSplit9"),
    OptionItem<&Options::mnuLogins>("mnuLogins", "Ignore Logins"),
};

constexpr std::array kHelpItems = {
    MenuItem{"mnuHelpSite", "Korvanta Help", "F2", [](Client& client) { client.OpenHomepage(); }},
    MenuItem{"mnuNews", "News", "F3", [](Client& client) { client.news.window().Show(); }},
    MenuItem::Separator("mnuSplit3"),
    MenuItem{"mnuHomepage", "Homepage", "F8", [](Client& client) { client.OpenHomepage(); }},
};

constexpr std::array kMenuBar = {
    Menu{"mnuFile", "&File", kFileItems},       Menu{"mnuView", "&Game", kGameItems},
    Menu{"mnuGlobal", "G&lobal", kGlobalItems}, Menu{"mnuOptions", "&Options", kOptionsItems},
    Menu{"mnuHelp", "&Help", kHelpItems},
};

constexpr std::array kPopItems = {
    MenuItem{"mResearch", "Research This", "",
             [](Client& client) { client.board_actions.ResearchThis(); }},
    MenuItem{"mnuInfo", "Information", "",
             [](Client& client) { client.board_actions.Information(); }},
};

constexpr std::array kWarItems = {
    MenuItem{"mnuAttack", "Attack Player", "",
             [](Client& client) { client.board_actions.AttackPlayer(); }},
    MenuItem{"mInfo", "Statistics", "",
             [](Client& client) { client.board_actions.ShowStatistics(); }},
    MenuItem{"mAlliance", "Form Alliance", "",
             [](Client& client) { client.board_actions.FormAlliance(); }},
};

constexpr Menu kPopMenu{"mPopMenu", "PopMenu", kPopItems};
constexpr Menu kWarMenu{"mnuWarMenu", "WarMenu", kWarItems};

}  // namespace

std::span<const Menu> MenuBar() { return kMenuBar; }

const Menu& PopMenu() { return kPopMenu; }

const Menu& WarMenu() { return kWarMenu; }

std::string_view CaptionOf(const MenuItem& item, const Client& client) {
  const std::string_view caption = client.main_window.connect_caption();
  return item.name == kConnectItem && !caption.empty() ? caption : item.caption;
}

}  // namespace korvanta

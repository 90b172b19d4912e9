#include "lobby/menus.h"

#include <array>
#include <utility>

#include "base/change_notice.h"

namespace korvanta {
namespace {

constexpr std::string_view kConnectItem = "mnuDisCon";

constexpr MenuItem Separator(std::string_view name) { return {name, "-"}; }

constexpr std::array kFileItems = {
    MenuItem{kConnectItem, "Connect/Disconnect", "F1"},
    Separator("mnuSplit1"),
    MenuItem{"mnuExit", "Exit", "F12"},
};

constexpr std::array kGameItems = {
    MenuItem{"mnuCity", "Enter Game", "Ctrl+E"},
    MenuItem{"mAuto", "Auto Ready", "Ctrl+M", &Options::mAuto},
    MenuItem{"mnuTournament", "Tournament", "Ctrl+T"},
};

constexpr std::array kGlobalItems = {
    MenuItem{"mnuLookup", "Statistics Lookup", "Ctrl+L"},
};

constexpr std::array kOptionsItems = {
    MenuItem{"mnuAutoChat", "Auto Chat", "", &Options::mnuAutoChat},
    MenuItem{"mSounds", "Sounds", "", &Options::mSounds},
    Separator("mnuSplit5"),
    MenuItem{"mnuScrollLock", "Scroll Lock", "Ctrl+K", &Options::mnuScrollLock},
    MenuItem{"mnuFilter", "Language Filter", "Ctrl+F", &Options::mnuFilter},
    MenuItem{"mnuClear", "Clear Window", "F6"},
    Separator("mnuSplit9"),
    MenuItem{"mnuLogins", "Ignore Logins", "", &Options::mnuLogins},
};

constexpr std::array kHelpItems = {
    MenuItem{"mnuHelpSite", "Korvanta Help", "F2"},
    MenuItem{"mnuNews", "News", "F3"},
    Separator("mnuSplit3"),
    MenuItem{"mnuHomepage", "Homepage", "F8"},
};

constexpr std::array kMenuBar = {
    Menu{"mnuFile", "&File", kFileItems},       Menu{"mnuView", "&Game", kGameItems},
    Menu{"mnuGlobal", "G&lobal", kGlobalItems}, Menu{"mnuOptions", "&Options", kOptionsItems},
    Menu{"mnuHelp", "&Help", kHelpItems},
};

constexpr std::array kPopItems = {
    MenuItem{"mResearch", "Research This"},
    MenuItem{"mnuInfo", "Information"},
};

constexpr std::array kWarItems = {
    MenuItem{"mnuAttack", "Attack Player"},
    MenuItem{"mInfo", "Statistics"},
    MenuItem{"mAlliance", "Form Alliance"},
};

constexpr Menu kPopMenu{"mPopMenu", "PopMenu", kPopItems};
constexpr Menu kWarMenu{"mnuWarMenu", "WarMenu", kWarItems};

}  // namespace

std::span<const Menu> MenuBar() { return kMenuBar; }

const Menu& PopMenu() { return kPopMenu; }

const Menu& WarMenu() { return kWarMenu; }

void Menus::SetAction(std::string_view item, std::function<void()> action) {
  actions_[item] = std::move(action);
}

void Menus::Click(const MenuItem& item) {
  if (item.option != nullptr) {
    options_.*item.option = !(options_.*item.option);
    Tell(on_changed);
  }
  if (const auto action = actions_.find(item.name); action != actions_.end()) {
    action->second();
  }
}

std::string_view Menus::Caption(const MenuItem& item) const {
  return item.name == kConnectItem && !connect_caption_.empty() ? connect_caption_ : item.caption;
}

void Menus::SetConnectCaption(std::string_view caption) {
  if (caption != connect_caption_) {
    connect_caption_ = caption;
    Tell(on_changed);
  }
}

}  // namespace korvanta

/// The whole client below its windows, and its menus.
#include "client/client.h"

#include <gmock/gmock.h>

#include "client/menus.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/menu_items.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct ClientTest : testing::Test {
  ClientTest() {
    client.main_window.on_show = [this] { events.emplace_back("main shown"); };
    const std::pair<std::string, WindowLife*> windows[] = {
        {"login", &client.login_dialog.window()},
        {"news", &client.news.window()},
        {"splash", &client.splash.window()},
        {"statistics", &client.statistics.window()},
        {"tournament", &client.tournament.window()}};
    for (const auto& [name, window] : windows) {
      window->on_show = [this, name = name] { events.push_back(name + " shown"); };
      window->on_unload = [this, name = name] { events.push_back(name + " gone"); };
    }
    platform.socket.on_drain = [this] { events.emplace_back("drained"); };
  }

  std::vector<std::string> TakeEvents() { return std::exchange(events, {}); }

  void Click(std::string_view name) { fakes::ItemNamed(name).click(client); }
  std::string Sent() { return platform.socket.TakeReadable(); }

  void LogIn() {
    Click("mnuDisCon");
    client.login_dialog.UserNameTyped("alice");
    client.login_dialog.PasswordTyped("secret");
    client.login_dialog.LoginClicked();
    platform.socket.Accept();
    platform.socket.Receive(std::string("[con]Alice\00112\0", 14));
    Sent();
    TakeEvents();
  }

  std::vector<std::string> events;
  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};
};

TEST_F(ClientTest, StartsWithTheSplashAndShowsTheWindowsAfterFourSeconds) {
  platform.settings.entries["Logins > Last User"] = "DABC";
  platform.settings.entries["Logins > User/Password"] = "\xc9\xc7\xc5\xcb,\xc9;";
  ASSERT_TRUE(client.StartUp());
  EXPECT_THAT(TakeEvents(), ElementsAre("splash shown"));
  EXPECT_EQ(client.main_window.title(), "Korvanta - v1.6 - Disconnected");
  EXPECT_EQ(client.values.ClientVersion, "1.6");
  EXPECT_EQ(client.splash.Label3(), "Version: 1.6");
  EXPECT_EQ(client.language_filter.FilterWords(), modData::kFilterWords);

  platform.timers.Tick(4000ms);
  EXPECT_THAT(TakeEvents(), ElementsAre("splash gone", "main shown", "login shown"));
  EXPECT_EQ(client.login_dialog.form().cboUsernames, "dabc");
  EXPECT_EQ(client.login_dialog.form().txtPassword, "c");
  for (const auto& [interval, timer] : platform.timers.made) {
    EXPECT_FALSE(timer->enabled) << interval.count();
  }
}

TEST_F(ClientTest, ASecondCopyOnlySaysSo) {
  platform.instance.another_runs = true;
  EXPECT_FALSE(client.StartUp());
  EXPECT_THAT(platform.message_box.shown,
              ElementsAre("Korvanta: A version of Korvanta is already running."));
  EXPECT_EQ(client.values.ClientVersion, "") << "nothing was set up";
  platform.timers.Tick(4000ms);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ClientTest, ClosingSaysGoodbyeSavesAndUnloadsInOrder) {
  ASSERT_TRUE(client.StartUp());
  LogIn();
  for (const char* item : {"mnuTournament", "mnuLookup", "mnuNews", "mnuScrollLock"}) {
    Click(item);
  }
  client.login_dialog.window().Show();
  Sent();
  TakeEvents();
  client.main_window.on_close = [this] { client.CloseMainWindow(); };
  platform.settings.on_save = [this] {
    EXPECT_EQ(platform.socket.sent.size(), 1U);
    EXPECT_THAT(events, IsEmpty());
  };

  Click("mnuExit");
  EXPECT_EQ(Sent(), "[dis];");
  EXPECT_THAT(TakeEvents(), ElementsAre("login gone", "news gone", "splash gone", "statistics gone",
                                        "tournament gone", "drained"));
  EXPECT_EQ(platform.settings.entries["Menu > ScrollLock"], "True");
  EXPECT_EQ(platform.settings.entries["Logins > Last User"], "alice");

  client.CloseMainWindow();
  EXPECT_EQ(platform.settings.commits, 1);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ClientTest, ClosingUnconnectedSendsNothingAndSaysWhatCouldNotBeSaved) {
  platform.settings.commit_error = "The settings could not be saved.";
  platform.socket.connected = true;
  client.CloseMainWindow();
  EXPECT_EQ(Sent(), "");
  EXPECT_THAT(platform.message_box.shown,
              ElementsAre("Korvanta: The settings could not be saved. (!)"));
}

TEST_F(ClientTest, EachFailureOfTheHomepageHasItsOwnWordsUntilTheMainWindowCloses) {
  const std::string page = "http://korvanta.example/Korvanta/";
  const std::string not_found = "Korvanta: The '" + page + "' File or Path was Not Found. (!)";
  const std::string other =
      "Korvanta: An error occurred attempting to open '" + page + "' (ShellExecute code ";
  const std::vector<std::pair<int, std::string>> cases = {
      {31,
       "Korvanta: No Association Found for HTTP Addresses. A Web Browser Should be Installed or "
       "Reinstalled. (!)"},
      {2, not_found},
      {3, not_found},
      {0, other + "0). (x)"},
      {32, other + "32). (x)"}};
  std::vector<std::string> texts;
  for (const auto& [code, text] : cases) {
    texts.push_back(text);
    Click("mnuHomepage");
    platform.web.Answer(code);
    EXPECT_EQ(platform.message_box.shown, texts);
  }
  Click("mnuHomepage");
  platform.web.Answer(33);
  Click("mnuHomepage");
  client.CloseMainWindow();
  platform.web.Answer(2);
  EXPECT_EQ(platform.message_box.shown, texts);
}

TEST_F(ClientTest, AReplyCreatesItsWindowUnseenAndTheNextCreationStartsEmpty) {
  const auto shown = [this] {
    return std::tuple(client.news.rbNews(), client.statistics.state(), client.tournament.state());
  };
  const auto nothing = shown();
  const std::tuple<std::string, WindowLife*, const char*> cases[] = {
      {"[nws]one\r\ntwo\001three", &client.news.window(), "[nws];"},
      {"[bre]Ann" + std::string(12, '\1'), &client.statistics.window(), "[bre]Me;"},
      {"[tif]1\0012\0013\0014", &client.tournament.window(), "[tif];"},
      {"[ttm]Foxes", &client.tournament.window(), "[tif];"},
      {"[tdd]Foxes", &client.tournament.window(), "[tif];"}};
  int changes = 0;
  client.news.on_changed = client.statistics.on_changed =
      client.tournament.on_changed = [&changes] { ++changes; };
  client.values.CurrentUserName = "Me";
  for (const auto& [reply, window, request] : cases) {
    platform.socket.connected = client.values.IsConnected = true;
    changes = 0;
    platform.socket.Receive(reply + '\0');
    platform.socket.Receive(reply + '\0');
    EXPECT_EQ(changes, 1) << reply;
    EXPECT_EQ(window->state(), WindowLife::State::Hidden) << reply;
    window->Show();
    EXPECT_EQ(Sent(), request);
    EXPECT_NE(shown(), nothing) << reply;
    window->Unload();
    platform.socket.connected = client.values.IsConnected = false;
    window->Show();
    EXPECT_EQ(Sent(), "");
    EXPECT_EQ(shown(), nothing) << reply;
    window->Unload();
  }
}

constexpr std::pair<std::string_view, bool Options::*> kOptions[] = {
    {"mAuto", &Options::mAuto},         {"mnuAutoChat", &Options::mnuAutoChat},
    {"mSounds", &Options::mSounds},     {"mnuScrollLock", &Options::mnuScrollLock},
    {"mnuFilter", &Options::mnuFilter}, {"mnuLogins", &Options::mnuLogins}};

/// What a click on the item does, with a line written, a box and a player chosen before and every
/// question answered with Yes: whether the view changes, which options it toggles, each marked when
/// the item shows it, and what leaves.
std::string DoneBy(const MenuItem& item, bool connected = true, bool logged_in = true) {
  fakes::FakePlatform platform;
  Client client(platform.platform(), {});
  platform.socket.connected = connected;
  client.values.IsConnected = logged_in;
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

TEST(Menus, ItemsOfTheGameNeedTheSocketAndThoseOfTheLobbyTheLogin) {
  std::string without_login, without_socket;
  for (const char* item : {"mnuDisCon", "mnuCity", "mnuTournament", "mnuLookup", "mnuNews",
                           "mResearch", "mnuInfo", "mnuAttack", "mInfo", "mAlliance"}) {
    without_login += DoneBy(fakes::ItemNamed(item), true, false);
    without_socket += DoneBy(fakes::ItemNamed(item), false, true);
  }
  EXPECT_EQ(without_login, "[jon];[tif];[upg]2,3,;[inf]2;[att]Bob;[bre]Bob;[aly]Bob;");
  EXPECT_EQ(without_socket, "[dis];[bre]Me;[nws];");
}

}  // namespace
}  // namespace korvanta

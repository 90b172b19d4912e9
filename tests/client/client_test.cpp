#include "client/client.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"
#include "tests/fakes/menu_items.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ClientTest : public testing::Test {
 protected:
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

}  // namespace
}  // namespace korvanta

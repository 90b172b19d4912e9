#include "client/client.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"
#include "tests/fakes/menu_items.h"

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ClientTest : public testing::Test {
 protected:
  ClientTest() {
    client.main_window.on_show = [this] { Note("main shown"); };
    client.login_dialog.window().on_show = [this] { Note("login shown"); };
    client.login_dialog.window().on_unload = [this] { Note("login gone"); };
    client.news.window().on_unload = [this] { Note("news gone"); };
    client.splash.window().on_show = [this] { Note("splash shown"); };
    client.splash.window().on_unload = [this] { Note("splash gone"); };
    client.statistics.window().on_unload = [this] { Note("statistics gone"); };
    client.tournament.window().on_unload = [this] { Note("tournament gone"); };
    platform.socket.on_drain = [this] { Note("drained"); };
  }

  void Note(const std::string& event) { events.push_back(event); }
  std::vector<std::string> TakeEvents() { return std::exchange(events, {}); }

  void Click(std::string_view name) { fakes::ItemNamed(name).click(client); }

  void LogIn(const std::string& user_id) {
    client.login_dialog.window().Show();
    client.login_dialog.UserNameTyped("alice");
    client.login_dialog.PasswordTyped("secret");
    client.login_dialog.LoginClicked();
    platform.socket.Accept();
    Receive({"[con]Alice\001" + user_id});
    platform.socket.TakeSent();
    TakeEvents();
  }

  void Receive(std::initializer_list<std::string> messages) {
    std::string block;
    for (const std::string& message : messages) {
      block += message + '\0';
    }
    platform.socket.Receive(block);
  }

  std::string ViewText() const {
    return client.message_view.text().Bytes(0, client.message_view.size());
  }

  std::vector<std::string> events;
  fakes::FakePlatform platform;
  Client client{platform.platform(), DeploymentValues{}};
};

std::string Message(const std::string& text) { return text + '\0'; }

TEST_F(ClientTest, StartsWithTheSplashAndShowsTheWindowsAfterFourSeconds) {
  platform.settings.entries["Logins > Last User"] = "DABC";
  platform.settings.entries["Logins > User/Password"] = "\xc9\xc7\xc5\xcb,\xc9;";
  ASSERT_TRUE(client.StartUp());
  EXPECT_THAT(TakeEvents(), ElementsAre("splash shown"));
  EXPECT_EQ(client.main_window.title(), "Korvanta - v1.6 - Disconnected");
  EXPECT_EQ(client.values.ClientVersion, "1.6");
  EXPECT_EQ(client.splash.Label3(), "Version: 1.6");
  EXPECT_EQ(client.language_filter.FilterWords(), modData::kFilterWords);
  EXPECT_EQ(platform.settings.reads.size(), 10U);

  platform.timers.Tick(4000ms);
  EXPECT_THAT(TakeEvents(), ElementsAre("splash gone", "main shown", "login shown"));
  EXPECT_THAT(client.login_dialog.form().cboUsernames_list, ElementsAre("dabc"));
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
  EXPECT_EQ(platform.message_box.icons.front(), MessageIcon::None);
  EXPECT_THAT(platform.settings.reads, IsEmpty());
  platform.timers.Tick(4000ms);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ClientTest, ClosingSaysGoodbyeSavesAndUnloadsInOrder) {
  ASSERT_TRUE(client.StartUp());
  LogIn("12");
  client.tournament.window().Show();
  client.statistics.window().Show();
  client.news.window().Show();
  client.login_dialog.window().Show();
  platform.socket.TakeSent();
  TakeEvents();
  Click("mnuScrollLock");
  client.main_window.on_close = [this] { client.CloseMainWindow(); };
  platform.settings.on_save = [this] {
    EXPECT_EQ(platform.socket.sent.size(), 1U);
    EXPECT_THAT(events, IsEmpty());
  };

  Click("mnuExit");
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[dis]")));
  EXPECT_THAT(TakeEvents(), ElementsAre("login gone", "news gone", "splash gone", "statistics gone",
                                        "tournament gone", "drained"));
  EXPECT_EQ(platform.settings.entries["Menu > ScrollLock"], "True");
  EXPECT_EQ(platform.settings.entries["Logins > Last User"], "alice");
  EXPECT_EQ(platform.settings.writes.size(), 10U);
  EXPECT_EQ(platform.settings.commits, 1);

  client.CloseMainWindow();
  EXPECT_EQ(platform.settings.commits, 1);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(ClientTest, ClosingUnconnectedSendsNothingAndTellsWhatCouldNotBeSaved) {
  ASSERT_TRUE(client.StartUp());
  platform.settings.commit_error = "The settings could not be saved.";
  platform.socket.connected = true;
  client.news.window().Show();
  TakeEvents();
  client.CloseMainWindow();
  EXPECT_THAT(TakeEvents(), ElementsAre("news gone", "splash gone", "drained"));
  EXPECT_THAT(platform.socket.TakeSent(), IsEmpty());
  EXPECT_THAT(platform.message_box.shown,
              ElementsAre("Korvanta: The settings could not be saved."));
}

TEST_F(ClientTest, TheEndOfAConnectionAndTheNextLoginLeaveEverythingElse) {
  ASSERT_TRUE(client.StartUp());
  LogIn("12");
  client.chat_input.TextEdited("hello");
  client.chat_input.SendChatLine();
  client.chat_input.TextEdited("half a li");
  Receive({"[onl]Bob\0011\0011\0010", "[upg]2\0013", "[poi]7"});
  client.online_list.Select(0);
  EXPECT_TRUE(client.board_actions.PlayerRightClicked());
  client.board_actions.BoxRightClicked(TopicCode::Population, 4);
  const auto expect_kept = [this](const char* after, bool board_too = true) {
    const BoardActions& actions = client.board_actions;
    EXPECT_EQ(std::tuple(actions.SelectedTopic, actions.SelectedLevel, actions.SelectedPlayer),
              std::tuple(TopicCode::Population, 4, "Bob"))
        << after;
    EXPECT_EQ(client.online_list.entries().size(), 1U) << after;
    EXPECT_EQ(client.values.UserID, 12) << after;
    EXPECT_THAT(client.chat_input.history(), ElementsAre("c hello")) << after;
    EXPECT_EQ(client.chat_input.text(), "half a li") << after;
    EXPECT_EQ(client.research_board.FrameWidth(1, 3), board_too ? kReachedWidth : kPlainWidth);
    EXPECT_EQ(client.research_board.Research(),
              board_too ? "Research Points: 7" : "Research Points: 0");
  };
  platform.socket.Hangup();
  expect_kept("the server closes");
  client.connection.StartConnection();
  expect_kept("a new attempt");
  platform.socket.Accept();
  expect_kept("its handshake");
  Receive({"[con]Alice\00112"});
  expect_kept("its login");
  Receive({"[clr]", "[clt]"});
  expect_kept("a cleared board", false);
}

TEST_F(ClientTest, EveryMessageReachesTheThingThatItChanges) {
  ASSERT_TRUE(client.StartUp());
  LogIn("90");
  Receive({"[tim]90", "[poi]12.50", "[upg]1\0012", "[sou]5", "[nws]news", "[onl]Bob\0011\0011\0010",
           "[tdd]Red\001Blue", "[ttm]Green", "[tif]50\00140\0013\0012", "[bre]Bob"});
  EXPECT_THAT(platform.socket.TakeSent(),
              ElementsAre(Message("[nws]"), Message("[tif]"), Message("[bre]Alice")));
  platform.timers.Tick(1000ms);
  EXPECT_EQ(client.research_board.TickTime(), "Tick Time - 1:29");
  EXPECT_EQ(client.research_board.Research(), "Research Points: 12.5");
  EXPECT_EQ(client.research_board.FrameWidth(0, 2), kReachedWidth);
  EXPECT_THAT(platform.sounds.played, ElementsAre("sounds/research.wav"));
  EXPECT_EQ(client.news.rbNews(), "news");
  EXPECT_EQ(client.online_list.entries().size(), 1U);
  const TournamentState& tournament = client.tournament.state();
  EXPECT_TRUE(tournament.has_admin_tab);
  EXPECT_THAT(tournament.team_names, ElementsAre("Red", "Blue"));
  EXPECT_EQ(tournament.lstTeams.size(), 1U);
  EXPECT_EQ(tournament.texts.txtPurse, "40");
  EXPECT_EQ(client.statistics.state().frmUserData, "Statistics for 'Bob'");
}

TEST_F(ClientTest, TheConnectItemLogsInAndOut) {
  ASSERT_TRUE(client.StartUp());
  TakeEvents();
  for (const bool in_handshake : {false, true}) {
    platform.socket.connected = in_handshake;
    Click("mnuDisCon");
    EXPECT_THAT(TakeEvents(), ElementsAre("login shown")) << in_handshake;
    EXPECT_THAT(platform.socket.TakeSent(), IsEmpty()) << in_handshake;
  }
  LogIn("1");
  Click("mnuDisCon");
  EXPECT_THAT(platform.socket.TakeSent(), ElementsAre(Message("[dis]")));
  platform.socket.Hangup();
  EXPECT_EQ(client.main_window.title(), "Korvanta - v1.6 - Disconnected");
  EXPECT_EQ(ViewText(), "Connecting as alice...\r\nConnected as Alice\r\nDisconnected\r\n");
  Click("mnuClear");
  EXPECT_EQ(ViewText(), "");
}

TEST_F(ClientTest, BothHelpItemsOpenTheHomepageAndTellAFailureWhenItIsKnown) {
  ASSERT_TRUE(client.StartUp());
  Click("mnuHelpSite");
  platform.web.Answer(33);
  Click("mnuHomepage");
  EXPECT_THAT(platform.message_box.shown, IsEmpty());
  platform.web.Answer(5);
  EXPECT_THAT(platform.web.opened, ElementsAre("http://korvanta.example/Korvanta/",
                                               "http://korvanta.example/Korvanta/"));
  EXPECT_THAT(platform.message_box.shown, ElementsAre(HasSubstr("(ShellExecute code 5).")));

  Click("mnuHomepage");
  client.CloseMainWindow();
  platform.web.Answer(5);
  EXPECT_EQ(platform.message_box.shown.size(), 1U) << "nobody is left to be told";
}

}  // namespace
}  // namespace korvanta

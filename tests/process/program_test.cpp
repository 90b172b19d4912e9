/// The whole program on a display with a user at it, against a scripted server.
#include <QDir>
#include <QFileInfo>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>

#include "harness/player.h"
#include "harness/scripted_server.h"

namespace korvanta::harness {
namespace {

using namespace std::string_view_literals;

/// One copy of the program at a time; a picture of the screen when the test fails.
struct ProgramTest : testing::Test {
  void TearDown() override {
    if (HasFailure()) {
      const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
      const QString picture =
          QString(KORVANTA_FAILURE_FOLDER "/%1.%2.png").arg(test.test_suite_name(), test.name());
      user_.PhotographScreen(picture);
      std::cout << "The screen as it was: " << picture.toStdString() << "\n";
    }
  }

  /// Starts the program and waits for its windows.
  void Start() {
    program_.reset();
    program_ = std::make_unique<Program>(installation_, display_);
    player_ = std::make_unique<Player>(user_, *program_);
    player_->WaitForStart();
  }

  /// Starts the program and logs in as Marlow.
  void StartLoggedIn() {
    const int known = server_.clients();
    Start();
    player_->Login("Marlow", "secret1");
    server_.LetIn(known);
    player_->WaitForState("Connected");
  }

  const Window& main_window() const { return player_->main_window(); }
  Window WaitFor(const QString& title) const { return user_.WaitForWindow(program_->pid(), title); }

  VirtualDisplay display_;
  User user_{display_};
  ScriptedServer server_;
  Installation installation_{server_.address()};
  std::unique_ptr<Program> program_;
  std::unique_ptr<Player> player_;
};

/// In fractions of the main window's width and height.
constexpr QPointF kFirstPlayer{0.76, 0.652};

TEST_F(ProgramTest, LogsInChatsPlaysAndLeavesWithEveryWindow) {
  Start();
  EXPECT_EQ(main_window().title, "Korvanta - v1.6 - Disconnected");
  user_.Activate(player_->login_dialog());
  // "Save Password" on, then back to the user name.
  user_.Press({"Tab", "Tab", "Tab", "space", "alt+u"});
  player_->Login("Marlow", "secret1");
  server_.WaitForClient();
  server_.Expect("[con]1.6\001Marlow\001secret1\0"sv);
  server_.Send("[con]Marlow\00190\0"sv);
  player_->WaitForState("Connected");

  server_.Send("[msg]cht\001Aster: hail\001False\0"sv);
  player_->WaitForMessage("Aster: hail");
  user_.Press({"ctrl+e"});  // the message view has the keyboard, and a use of its own for this key
  server_.Expect("[jon]\0"sv);
  player_->Say("hello");
  server_.Expect("[ctc]c hello\0"sv);
  user_.Press({"ctrl+e"});  // likewise the chat line
  EXPECT_THROW(server_.Expect("[jox]"), HarnessError) << "no other bytes will do";
  server_.Expect("[jon]\0"sv);

  // From the chat line back to the board, to the Golden Knowledge and away again.
  user_.Press({"shift+Tab", "shift+Tab", "Right", "Right", "Right", "Right", "Menu"});
  player_->ChooseItem(1);
  server_.Expect("[upg]5\0015\001\0"sv);
  user_.Press({"Left", "Left", "Down", "Down", "shift+F10"});
  player_->ChooseItem(2);
  server_.Expect("[inf]3\0"sv);
  server_.Send("[onl]Aster\0014\00131\0010\0[msg]cht\001Aster: here\001False\0"sv);
  player_->WaitForMessage("Aster: here");
  user_.Click(main_window(), kFirstPlayer, 3);
  WaitFor("Korvanta");  // the menu, with no item chosen: Enter sends nothing yet
  user_.Press({"Return"});
  player_->ChooseItem(1);
  server_.Expect("[att]Aster\0"sv);

  player_->Choose("ctrl+k");
  for (const SideWindow& side : kSideWindows) {
    player_->Open(side);
  }
  server_.Expect("[bre]Marlow\0[nws]\0[tif]\0"sv);
  EXPECT_EQ(user_.Windows(program_->pid()).size(), 4);

  EXPECT_FALSE(QFileInfo::exists(installation_.settings_file()));
  const qint64 pid = program_->pid();
  player_->Choose("alt+F4");
  EXPECT_EQ(program_->WaitForExit(), 0);
  server_.Expect("[dis]\0"sv);
  server_.WaitUntilLeft();
  EXPECT_EQ(server_.unread(), "");
  EXPECT_EQ(user_.Windows(pid).size(), 0);
  EXPECT_EQ(program_->Output().toStdString(), "");
  const QByteArray settings = installation_.Settings();
  EXPECT_TRUE(settings.startsWith("[Menu]\nScrollLock=True\n")) << settings.constData();
  EXPECT_TRUE(settings.contains("\nUser/Password=%F1%E1%DB%E7%C5%9D,e%EB%CD%E7%C9%CD%E9;\n"));
}

TEST_F(ProgramTest, ASecondCopyIsRefusedAndWhatCannotBeSavedIsReportedAtTheEnd) {
  QDir().mkpath(installation_.settings_file() + "/folder");
  StartLoggedIn();
  Program second(installation_, display_);
  user_.Activate(user_.WaitForWindow(second.pid(), "Korvanta"));
  EXPECT_EQ(user_.Windows(second.pid()).size(), 1);
  user_.Press({"Return"});
  EXPECT_EQ(second.WaitForExit(), 0);
  EXPECT_EQ(server_.clients(), 1);

  user_.Activate(main_window());
  user_.Press({"F12"});
  server_.Expect("[dis]\0"sv);
  user_.Activate(WaitFor("Korvanta"));
  user_.Press({"Return"});
  EXPECT_EQ(program_->WaitForExit(), 0);
  EXPECT_EQ(program_->Output().toStdString(), "");
}

/// Ends that come at the worst moment.
struct AbruptEnd : ProgramTest {
  static constexpr const char* kSettings = "[Menu]\nScrollLock=False\n";

  void ShowSplash() {
    program_ = std::make_unique<Program>(installation_, display_);
    main_ = user_.WaitForWindow(program_->pid(), "Korvanta");
  }
  void Flood() {
    StartLoggedIn();
    main_ = main_window();
    const std::string_view lines =
        "[msg]cht\001Aster: hail\001False\0[nws]news\0[tif]1\0012\0013\0014\0"sv;
    for (int i = 0; i < 50'000; ++i) {
      server_.Send(lines);
    }
  }
  void ShowMessageBox() {
    Start();
    user_.Activate(player_->login_dialog());
    user_.Press({"Return"});
    main_ = WaitFor("Invalid Character Length");
  }

  Window main_;
};

TEST_F(AbruptEnd, IsAnEndWhateverGoesOn) {
  const auto signal = [this] { ::kill(static_cast<pid_t>(program_->pid()), SIGTERM); };
  const auto frame = [this] { player_->Choose("alt+F4"); };
  const auto display = [this] {
    RunTool("xdotool", {"windowkill", main_.id}, display_.environment());
  };
  const struct {
    const char* name;
    std::function<void()> begin;
    std::function<void()> end;
    int exit_status;
    bool saves;
  } cases[] = {
      {"splash, signal", [this] { ShowSplash(); }, signal, 0, false},
      {"splash, display gone", [this] { ShowSplash(); }, display, 1, false},
      {"flood, frame", [this] { Flood(); }, frame, 0, true},
      {"flood, signal", [this] { Flood(); }, signal, 0, true},
      {"flood, display gone", [this] { Flood(); }, display, 1, false},
      {"message box, signal", [this] { ShowMessageBox(); }, signal, 0, true},
      {"message box, display gone", [this] { ShowMessageBox(); }, display, 1, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    installation_.WriteSettings(kSettings);
    c.begin();
    const qint64 pid = program_->pid();
    c.end();
    EXPECT_EQ(program_->WaitForExit(), c.exit_status);
    // Leaks do not count: when the display goes, the toolkit ends the program where it stands.
    const QByteArray output = program_->Output();
    EXPECT_FALSE(output.contains("ERROR: AddressSanitizer") || output.contains("runtime error:"))
        << output.constData();
    EXPECT_EQ(installation_.Settings() != kSettings, c.saves);
    EXPECT_EQ(QFileInfo(installation_.settings_file()).dir().entryList(QDir::Files).size(), 1);
    EXPECT_EQ(user_.Windows(pid).size(), 0);
  }
}

}  // namespace
}  // namespace korvanta::harness

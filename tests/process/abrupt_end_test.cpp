/// Ends that come at the worst moment.
#include <QDir>
#include <QFileInfo>
#include <csignal>

#include "tests/process/process_test.h"

namespace korvanta::process {
namespace {

class AbruptEnd : public StoryTest {
 protected:
  static constexpr const char* kSettings = "[Menu]\nScrollLock=False\n";

  void ShowSplash() {
    program_ = std::make_unique<Program>(installation_, display_);
    main_ = user_.WaitForWindow(program_->pid(), "Korvanta");
  }
  void WaitForAnswer() {
    const int known = server_.clients();
    Start();
    player_->Login("Marlow", "secret1");
    server_.WaitForClient(known);
    server_.ReceiveUntil("secret1");
    main_ = main_window();
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
      {"login not answered, frame", [this] { WaitForAnswer(); }, frame, 0, true},
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
}  // namespace korvanta::process

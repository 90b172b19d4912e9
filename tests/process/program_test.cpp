#include <QDir>
#include <QFileInfo>

#include "tests/process/process_test.h"

namespace korvanta::process {
namespace {

/// In parts of the main window's width and height.
constexpr QPointF kFirstPlayer{0.76, 0.652};

class ProgramStory : public StoryTest {};

TEST_F(ProgramStory, LogsInChatsPlaysAndLeavesWithEveryWindow) {
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
  EXPECT_EQ(installation_.Settings().toStdString(),
            "[Menu]\nScrollLock=True\nLanguageFilter=True\nIgnoreLogins=False\nSounds=True\n"
            "Auto Chat=True\nAuto Ready=False\n"
            "[Client Data]\nTime=1\n"
            "[Logins]\nLast User=Marlow\n"
            "User/Password=%F1%E1%DB%E7%C5%9D,e%EB%CD%E7%C9%CD%E9;\n"
            "[Settings]\nLogin=False\n");
}

TEST_F(ProgramStory, ASecondCopyIsRefused) {
  StartLoggedIn();
  Program second(installation_, display_);
  const Window box = user_.WaitForWindow(second.pid(), "Korvanta");
  EXPECT_EQ(user_.Windows(second.pid()).size(), 1);
  user_.Activate(box);
  user_.Press({"Return"});
  EXPECT_EQ(second.WaitForExit(), 0);
  EXPECT_EQ(server_.clients(), 1);
  EXPECT_EQ(player_->Leave(), 0);
}

TEST_F(ProgramStory, WithoutAPlaceToSaveThePlayerIsToldAtTheEnd) {
  QDir().mkpath(installation_.settings_file() + "/folder");
  StartLoggedIn();
  user_.Press({"F12"});
  server_.Expect("[dis]\0"sv);
  const Window box = WaitFor("Korvanta");
  user_.Activate(box);
  user_.Press({"Return"});
  EXPECT_EQ(program_->WaitForExit(), 0);
  EXPECT_EQ(program_->Output().toStdString(), "");
}

}  // namespace
}  // namespace korvanta::process

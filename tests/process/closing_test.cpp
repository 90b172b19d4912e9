#include <QElapsedTimer>
#include <QFileInfo>

#include "tests/process/story_test.h"

namespace korvanta::process {
namespace {

class ClosingStory : public StoryTest {};

TEST_F(ClosingStory, SaysGoodbyeSavesAndTakesEveryWindowAlong) {
  Start();
  user_.Activate(player_->login_dialog());
  // "Save Password" on, then back to the user name.
  user_.Press({"Tab", "Tab", "Tab", "space", "alt+u"});
  Login("90");
  player_->Choose("ctrl+k");
  for (const auto& [shortcut, title] : {std::pair{"F3", "News"},
                                        {"ctrl+l", "Search Online User"},
                                        {"ctrl+t", "Tournament Window"}}) {
    player_->Choose(shortcut);
    user_.Activate(WaitFor(title));
  }
  server_.Expect(Bytes("[nws]\0[bre]Marlow\0[tif]\0"));
  Keep("all-open");
  EXPECT_EQ(user_.Windows(program_->pid()).size(), 4);
  EXPECT_FALSE(QFileInfo::exists(installation_.settings_file()));

  const qint64 pid = program_->pid();
  EXPECT_EQ(player_->Leave(), 0);
  server_.Expect(Bytes("[dis]\0"));
  server_.WaitUntilLeft();
  EXPECT_EQ(Readable(server_.unread()).toStdString(), "");
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

TEST_F(ClosingStory, AServerThatReadsNothingHoldsItForAboutASecond) {
  Start();
  Login("7");
  player_->Choose("ctrl+m");
  // Every cleared board makes the client say that it is ready, until the system takes no more.
  server_.StopReading();
  server_.Send(Bytes("[clr]\0").repeated(1'000'000) + Bytes("[msg]cht\001Aster: flood\001False\0"));
  player_->WaitForMessage("Aster: flood");

  user_.Activate(main_window());
  QElapsedTimer closing;
  closing.start();
  user_.Press({"F12"});
  EXPECT_EQ(program_->WaitForExit(), 0);
  EXPECT_GE(closing.elapsed(), 900);
  EXPECT_LT(closing.elapsed(), 5000);
  EXPECT_TRUE(installation_.Settings().contains("Auto Ready=True"));
}

class SecondCopyStory : public StoryTest {};

TEST_F(SecondCopyStory, IsRefusedUntilTheFirstIsGoneHoweverItWent) {
  const QByteArray settings = "[Menu]\nScrollLock=False\n[Logins]\nLast User=Corin\n";
  installation_.WriteSettings(settings);
  Start();
  Login("7");
  player_->Choose("ctrl+k");

  Program second(installation_, display_);
  const Window box = user_.WaitForWindow(second.pid(), "Korvanta");
  Keep("refused", box);
  EXPECT_EQ(user_.Windows(second.pid()).size(), 1);
  user_.Activate(box);
  user_.Press({"Return"});
  EXPECT_EQ(second.WaitForExit(), 0);
  EXPECT_EQ(second.Output().toStdString(), "");
  EXPECT_EQ(installation_.Settings(), settings);
  ExpectNothingSent();
  EXPECT_EQ(server_.clients(), 1);

  program_->Kill();
  server_.WaitUntilLeft();
  EXPECT_EQ(Readable(server_.unread()).toStdString(), "");
  EXPECT_EQ(installation_.Settings(), settings);

  Start();
  Keep("started-again");
  EXPECT_EQ(player_->Leave(), 0);
  const QByteArray saved = installation_.Settings();
  EXPECT_TRUE(saved.contains("ScrollLock=False\n")) << saved.toStdString();
  EXPECT_TRUE(saved.contains("Last User=Corin\n")) << saved.toStdString();
  EXPECT_TRUE(saved.contains("User/Password=\n")) << saved.toStdString();
}

}  // namespace
}  // namespace korvanta::process

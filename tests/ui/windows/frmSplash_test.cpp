#include "ui/windows/frmSplash.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/fakes/fake_platform.h"
#include "ui/windows/frmMain.h"

namespace korvanta {
namespace {

using std::chrono_literals::operator""ms;

TEST(FrmSplash, ShowsHowLoadingGoesAndGivesWayToNobodyForFourSeconds) {
  fakes::FakePlatform platform;
  Client client(platform.platform(),
                {.rights_notice = {"All rights reserved", "The Maker", "2002-2024"}});
  frmSplash splash(client.splash);
  client.splash.window().on_unload = [&] { splash.hide(); };
  frmMain main_window(client);
  ASSERT_TRUE(client.StartUp());
  splash.show();
  const auto expect = [&splash](std::initializer_list<std::pair<const char*, const char*>> lines) {
    for (const auto& [label, text] : lines) {
      EXPECT_EQ(splash.findChild<QLabel*>(QLatin1String(label))->text(), QLatin1String(text));
    }
  };
  expect({{"Label1", "Korvanta"},
          {"Label3", "Version: 1.6"},
          {"Label4", "Now Loading"},
          {"Label5(0)", "All rights reserved"},
          {"Label5(1)", "The Maker"},
          {"Label5(2)", "2002-2024"}});
  for (const char* dots : {".", "..", "...", "....", "."}) {
    platform.timers.Tick(200ms);
    const std::string text = std::string("Now Loading") + dots;
    expect({{"Label4", text.c_str()}});
  }

  QCloseEvent by_the_user;
  QSpontaneKeyEvent::setSpontaneous(&by_the_user);
  qApp->notify(&splash, &by_the_user);
  EXPECT_FALSE(by_the_user.isAccepted());
  EXPECT_EQ(client.splash.window().state(), WindowLife::State::Shown);
  EXPECT_TRUE(splash.isVisible() && !main_window.isVisible());
  platform.timers.Tick(4000ms);
  EXPECT_TRUE(!splash.isVisible() && main_window.isVisible());
}

}  // namespace
}  // namespace korvanta

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
  for (const char* dots : {"", ".", "..", "...", "....", "."}) {
    QStringList shown;
    for (const char* label :
         {"Label1", "Label3", "Label4", "Label5(0)", "Label5(1)", "Label5(2)"}) {
      shown.append(splash.findChild<QLabel*>(QLatin1String(label))->text());
    }
    EXPECT_EQ(shown.join(QLatin1Char('|')).toStdString(),
              std::string("Korvanta|Version: 1.6|Now Loading") + dots +
                  "|All rights reserved|The Maker|2002-2024");
    platform.timers.Tick(200ms);
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

#include <QRegularExpression>
#include <algorithm>
#include <gmock/gmock.h>

#include "harness/accessibility_bus.h"
#include "tests/process/process_test.h"

namespace korvanta::process {
namespace {

class Accessibility : public ProcessTest {
 protected:
  /// The controls of the process, once all of them that are named here are there.
  QStringList Wait(const Program& program, const QStringList& expected) const {
    QStringList controls;
    try {
      WaitUntil("the controls are seen", [&] {
        controls = bus_.ControlsOf(program.pid());
        return std::all_of(expected.begin(), expected.end(),
                           [&](const QString& control) { return controls.contains(control); });
      });
    } catch (const HarnessError& error) {
      throw HarnessError(QString(error.what()) + "; there are:\n" + controls.join('\n'));
    }
    return controls;
  }

  ScriptedServer server_;
  Installation installation_{server_.address()};
  AccessibilityBus bus_{installation_.EnvironmentOn(display_)};
};

TEST_F(Accessibility, EveryControlOfEveryWindowHasANameAndARole) {
  Program program(installation_.program_file(), {}, bus_.environment());
  QStringList controls = Wait(program, {"frame\tKorvanta"});
  Player player(user_, program);
  player.WaitForStart();
  controls += Wait(program, {"dialog\tConnection Screen", "push button\tTransmit"});

  player.Login("Marlow", "secret1");
  server_.LetIn();
  server_.Send(Bytes("[upg]1\0012\0[onl]Aster\0011\0011\0010\0[msg]cht\001Aster: hail\001False\0"));
  player.WaitForState("Connected");
  for (const SideWindow& side : kSideWindows) {
    player.Open(side);
  }
  player.Choose("ctrl+shift+f");
  controls += Wait(program, {"text\tMessages", "says\tAster: hail", "text\tFind",
                             "push button\tMilitary, level 2, reached", "dialog\tNews",
                             "dialog\tSearch Online User", "dialog\tTournament Window"});

  Program second(installation_.program_file(), {}, bus_.environment());
  user_.WaitForWindow(second.pid(), "Korvanta");
  controls += Wait(second, {"alert\tKorvanta", "push button\tOK"});

  controls.removeDuplicates();
  EXPECT_THAT(controls.filter(QRegularExpression("\t$|^(unknown|filler|invalid|unused)\t"))
                  .join('\n')
                  .toStdString(),
              "");
}

}  // namespace
}  // namespace korvanta::process

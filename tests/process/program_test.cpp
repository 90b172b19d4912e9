#include "tests/process/program.h"

#include "tests/process/process_test.h"

namespace korvanta::process {
namespace {

TEST_F(ProcessTest, TheWindowAppearsAndClosingItEndsTheProgram) {
  const Installation installation(UniqueLoopbackAddress());
  Program program(installation, display_);
  const Window window = user_.WaitForWindow(program.pid(), "Korvanta*");
  user_.Activate(window);
  user_.Press({"alt+F4"});
  EXPECT_EQ(program.WaitForExit(), 0);
  EXPECT_EQ(program.Output().toStdString(), "");
}

}  // namespace
}  // namespace korvanta::process

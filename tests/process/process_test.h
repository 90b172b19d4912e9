/// The fixture of every test of the whole program: a display with a user at it, and a picture of
/// the screen when the test fails.
#pragma once

#include <gtest/gtest.h>

#include "harness/program.h"
#include "harness/scripted_server.h"
#include "harness/user.h"
#include "harness/virtual_display.h"

namespace korvanta::process {

/// Bytes of a literal, its NULs included.
template <std::size_t kSize>
QByteArray Bytes(const char (&literal)[kSize]) {
  return {literal, static_cast<qsizetype>(kSize - 1)};
}

class ProcessTest : public testing::Test {
 protected:
  void TearDown() override {
    if (HasFailure()) {
      const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
      const QString picture =
          QString(KORVANTA_FAILURE_FOLDER "/%1.%2.png").arg(test.test_suite_name(), test.name());
      user_.PhotographScreen(picture);
      std::cout << "The screen as it was: " << picture.toStdString() << "\n";
    }
  }

  VirtualDisplay display_;
  User user_{display_};
};

}  // namespace korvanta::process

/// The fixtures of the tests of the whole program: a display with a user at it and a picture of the
/// screen when the test fails; with the program and a scripted server besides.
#pragma once

#include <gtest/gtest.h>
#include <memory>

#include "harness/player.h"
#include "harness/scripted_server.h"

namespace korvanta::process {

using namespace harness;
using namespace std::string_view_literals;

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

/// One copy of the program at a time.
class StoryTest : public ProcessTest {
 protected:
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

  ScriptedServer server_;
  Installation installation_{server_.address()};
  std::unique_ptr<Program> program_;
  std::unique_ptr<Player> player_;
};

}  // namespace korvanta::process

/// The fixture of the long tests, each an evening with the program: a scripted server and one copy
/// of the program.
#pragma once

#include <memory>

#include "harness/player.h"
#include "tests/process/process_test.h"

namespace korvanta::process {

class StoryTest : public ProcessTest {
 protected:
  /// Starts the program and waits for its windows.
  void Start() {
    program_.reset();
    program_ = std::make_unique<Program>(installation_, display_);
    player_ = std::make_unique<Player>(user_, *program_);
    player_->WaitForStart();
  }

  /// Logs in as Marlow through the login dialog that is open; the server gives `user_id`.
  void Login(const QByteArray& user_id) {
    player_->Login("Marlow", "secret1");
    server_.WaitForClient();
    server_.Expect(Bytes("[con]1.6\001Marlow\001secret1\0"));
    server_.Send("[con]Marlow\001" + user_id + '\0');
    player_->WaitForState("Connected");
  }

  const Window& main_window() const { return player_->main_window(); }
  Window WaitFor(const QString& title) const { return user_.WaitForWindow(program_->pid(), title); }

  void ChooseItem(int position) const { player_->ChooseItem(position); }

  ScriptedServer server_;
  Installation installation_{server_.address()};
  std::unique_ptr<Program> program_;
  std::unique_ptr<Player> player_;
};

}  // namespace korvanta::process

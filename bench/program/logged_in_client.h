/// The built client on a display of its own, logged in to a server that the benchmark scripts.
#pragma once

#include <memory>

#include "harness/player.h"
#include "harness/scripted_server.h"

namespace korvanta::bench {

class LoggedInClient {
 public:
  /// `settings` is the text of its settings file.
  explicit LoggedInClient(const QByteArray& settings = {}) {
    installation_.WriteSettings(settings);
    program_ = std::make_unique<harness::Program>(installation_, display_);
    harness::Player player(user_, *program_);
    player.WaitForStart();
    player.Login("Marlow", "secret1");
    server_.LetIn();
    player.WaitForState("Connected");
    user_.Activate(player.main_window());
  }

  harness::VirtualDisplay& display() { return display_; }
  harness::ScriptedServer& server() { return server_; }
  qint64 pid() const { return program_->pid(); }

 private:
  harness::VirtualDisplay display_;
  harness::User user_{display_};
  harness::ScriptedServer server_;
  harness::Installation installation_{server_.address()};
  std::unique_ptr<harness::Program> program_;
};

}  // namespace korvanta::bench

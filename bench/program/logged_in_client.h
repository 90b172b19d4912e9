/// The built client on a display of its own, logged in at a server that the benchmark plays.
#pragma once

#include "bench/program/game_server.h"
#include "harness/player.h"

namespace korvanta::bench {

class LoggedInClient {
 public:
  /// `settings` is the text of its settings file.
  explicit LoggedInClient(const QByteArray& settings = {}) {
    installation_.WriteSettings(settings);
    program_ = std::make_unique<process::Program>(installation_, display_);
    process::Player player(user_, *program_);
    player.WaitForStart();
    player.Login("Marlow", "secret1");
    server_.Accept();
    LetIn(server_);
    player.WaitForState("Connected");
    user_.Activate(player.main_window());
  }

  process::VirtualDisplay& display() { return display_; }
  GameServer& server() { return server_; }
  qint64 pid() const { return program_->pid(); }

 private:
  process::VirtualDisplay display_;
  process::User user_{display_};
  GameServer server_;
  process::Installation installation_{server_.address()};
  std::unique_ptr<process::Program> program_;
};

}  // namespace korvanta::bench

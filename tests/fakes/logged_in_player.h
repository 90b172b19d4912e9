/// A player's connection on a fake socket, already logged in, for tests of what sends through it.
#pragma once

#include <string>
#include <vector>

#include "protocol/connection.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/recorders.h"

namespace korvanta::fakes {

struct LoggedInPlayer {
  LoggedInPlayer() {
    values.CurrentUserName = "Marlow";
    values.IsConnected = true;
    platform.socket.connected = true;
  }

  /// The socket alone is connected: the server has not answered the login yet.
  void OnlyHandshake() { values.IsConnected = false; }
  void Disconnected() {
    values.IsConnected = false;
    platform.socket.connected = false;
  }

  std::vector<std::string> TakeSent() { return platform.socket.TakeSent(); }

  FakePlatform platform;
  RecordingChat chat;
  RecordingDisplay display;
  ConnectionValues values;
  Connection connection{platform.socket, platform.timers, values, chat, display, "127.0.0.1"};
};

}  // namespace korvanta::fakes

/// A player's connection on a fake socket, for tests of what sends through it or is shown by it.
#pragma once

#include <string>
#include <vector>

#include "protocol/connection.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/recorders.h"

namespace korvanta::fakes {

/// Everything that a connection needs; nothing has happened to it yet.
struct OfflinePlayer {
  FakePlatform platform;
  FakeSocket& socket = platform.socket;
  FakeTimers& timers = platform.timers;
  RecordingChat chat;
  RecordingDisplay display;
  ConnectionValues values;
  Connection connection{socket, timers, values, chat, display, "127.0.0.1"};
};

/// Already logged in.
struct LoggedInPlayer : OfflinePlayer {
  LoggedInPlayer() {
    values.CurrentUserName = "Marlow";
    values.IsConnected = true;
    socket.connected = true;
  }

  /// The socket alone is connected: the server has not answered the login yet.
  void OnlyHandshake() { values.IsConnected = false; }

  void Disconnected() {
    values.IsConnected = false;
    socket.connected = false;
  }

  std::vector<std::string> TakeSent() { return socket.TakeSent(); }
};

}  // namespace korvanta::fakes

/// A player's connection on a fake socket, for tests of what sends through it or is shown by it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "protocol/connection.h"
#include "tests/fakes/fake_platform.h"

namespace korvanta::fakes {

/// "kind|text" for each line.
struct RecordingChat : ChatOutput {
  void AppendMessage(std::string_view text, MessageKind kind) override {
    lines.push_back(std::to_string(static_cast<int>(kind)) + "|" + std::string(text));
  }
  std::vector<std::string> Take() { return std::exchange(lines, {}); }

  std::vector<std::string> lines;
};

/// "caption=…" and "title=…" in order.
struct RecordingDisplay : ConnectionDisplay {
  void SetConnectCaption(std::string_view caption) override {
    calls.push_back("caption=" + std::string(caption));
  }
  void SetTitle(std::string_view title) override { calls.push_back("title=" + std::string(title)); }
  std::vector<std::string> Take() { return std::exchange(calls, {}); }

  std::vector<std::string> calls;
};

/// Everything that a connection needs; nothing has happened to it yet.
struct OfflinePlayer {
  /// What was sent since the last call, in readable form.
  std::string Sent() { return socket.TakeReadable(); }

  FakePlatform platform;
  FakeSocket& socket = platform.socket;
  FakeTimers& timers = platform.timers;
  FakeMessageBox& message_box = platform.message_box;
  RecordingChat chat;
  RecordingDisplay display;
  ConnectionValues values;
  Connection connection{socket, timers, values, chat, display, "127.0.0.1"};
};

/// Already logged in.
struct LoggedInPlayer : OfflinePlayer {
  LoggedInPlayer() {
    values.CurrentUserName = "Marlow";
    values.IsConnected = socket.connected = true;
  }
};

}  // namespace korvanta::fakes

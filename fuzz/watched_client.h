/// A whole client on a fake platform that is checked after every event; the client's fuzz target
/// plays events against it.
#pragma once

#include <functional>
#include <string_view>

#include "fuzz/drawn_client.h"
#include "tests/fakes/fake_platform.h"

namespace korvanta::fuzz {

/// Passes on what is sent and knows whether an attempt is under way.
class WatchedSocket : public fakes::FakeSocket {
 public:
  void Close() override {
    FakeSocket::Close();
    is_attempting = false;
  }
  void Connect(const std::string& /*host*/, std::uint16_t /*port*/) override {
    is_attempting = true;
  }
  void Send(std::string_view text) override { on_send(text); }

  bool is_attempting = false;
  std::function<void(std::string_view text)> on_send;
};

/// While a box stands, `on_open` lets other events happen and gives the answer.
class WatchedMessageBox : public MessageBox {
 public:
  void Show(std::string_view /*text*/, std::string_view /*title*/, MessageIcon /*icon*/) override {
    on_open();
  }
  bool Ask(std::string_view /*text*/, std::string_view /*title*/) override { return on_open(); }

  std::function<bool()> on_open;
};

/// One run of the program, from its start to the closing of its main window.
class WatchedClient {
 public:
  /// `on_box` is called while a message box stands. Both outlive the run.
  WatchedClient(fakes::MemorySettings& settings, std::function<bool()> on_box);
  WatchedClient(const WatchedClient&) = delete;
  WatchedClient& operator=(const WatchedClient&) = delete;

  Client& client() { return client_; }

  void Tick(std::chrono::milliseconds interval) { timers_.Tick(interval); }
  /// The attempt to connect succeeds, if one is under way.
  void Accept();
  /// Bytes arrive, if there is a connection and there are any.
  void Receive(std::string_view block);
  /// The server closes the connection, if there is one.
  void Hangup();
  /// The desktop's answer to every address that it was given.
  void AnswerWeb(int code) { web_.Answer(code); }

  /// Closes the main window as the desktop does; checks that what was stored can be read again.
  void Close();
  bool IsClosed() const { return is_closed_; }

  void UserTyped() { drawn_.UserTyped(); }

  /// Everything that holds between events.
  void CheckAll() const;

 private:
  void CheckSent(std::string_view message) const;
  void CheckStored();

  fakes::MemorySettings& settings_;
  fakes::FakeTimers timers_;
  WatchedSocket socket_;
  fakes::RecordingSounds sounds_;
  fakes::FakeWeb web_;
  WatchedMessageBox message_box_;
  fakes::FakeInstance instance_;
  Client client_;
  DrawnClient drawn_{client_};
  bool is_accepting_ = false;
  bool is_closed_ = false;
};

}  // namespace korvanta::fuzz

/// A whole client on a fake platform that is checked after every event; the client's fuzz target
/// plays events against it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "client/client.h"
#include "tests/fakes/fake_platform.h"

namespace korvanta::fuzz {

/// One run of the program, from its start to the closing of its main window.
class WatchedClient {
 public:
  /// `on_box` is called while a message box stands and gives the answer; it outlives the run.
  WatchedClient(std::map<std::string, std::string> settings, std::function<bool()> on_box);
  WatchedClient(const WatchedClient&) = delete;
  WatchedClient& operator=(const WatchedClient&) = delete;

  /// The attempt to connect succeeds, if one is under way.
  void Accept();
  /// Bytes arrive, if there is a connection and there are any.
  void Receive(std::string_view block);
  /// The server closes the connection, if there is one.
  void Hangup();
  /// The user changed a box of a side window, which shows it already; nobody is notified of that.
  void UserTyped() const;

  /// Closes the main window as the desktop does; checks that what was stored can be read again.
  void Close();
  bool IsClosed() const { return is_closed_; }

  /// Everything that holds between events.
  void CheckAll() const;

  fakes::FakePlatform platform;
  Client client{platform.platform(), {}};

 private:
  using Redraw = std::function<void()>;

  /// What the windows have drawn: each part is redrawn when the client says that it changed, as its
  /// widget does, and must then never be out of date.
  struct Part {
    std::string_view name;
    std::function<bool()> is_up_to_date;
  };

  /// Draws what `read` returns; calling the result draws it anew.
  template <typename Read>
  Redraw Draw(std::string_view name, Read read);
  /// Likewise what a side window shows, as long as it is shown.
  template <typename Presenter, typename Read>
  Redraw DrawWindow(std::string_view name, Presenter& presenter, Read read);
  void DrawAll();

  bool MaySend(ClientMessage message) const;
  void CheckSent(std::string_view message) const;
  void CheckStored();

  std::vector<Part> parts_;
  std::vector<Redraw> typed_in_;  ///< those in which the user types
  bool is_accepting_ = false;
  bool is_closed_ = false;
};

}  // namespace korvanta::fuzz

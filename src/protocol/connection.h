/// The one connection to the game server: attempt, time-out, handshake and end, and what the main
/// window shows of them. The login dialog starts it, the dispatcher completes it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/client_socket.h"
#include "platform/timer.h"
#include "protocol/connection_values.h"
#include "protocol/receivers.h"

namespace korvanta {

namespace modData {

/// Sets the caption of the connect item, `IsConnected` and the title, in this order. Called with
/// false at start-up and when the connection ends, with true when the login is accepted.
void ShowConnectionState(ConnectionDisplay& display, ConnectionValues& values, bool connected);

}  // namespace modData

/// The application title, on the main window and on message boxes without a title of their own.
inline constexpr std::string_view kApplicationTitle = "Korvanta";

/// The program's version as it is shown and sent: major, a point, minor.
inline constexpr std::string_view kVersionText = "1.6";

class Connection {
 public:
  /// `server_address` is the game server's IPv4 address; the references outlive the connection.
  Connection(ClientSocket& wsClient, TimerFactory& timers, ConnectionValues& values,
             ChatOutput& chat, ConnectionDisplay& display, std::string server_address);

  /// Starts an attempt for `CurrentUserName`, ending any other and any login: eight ticks of
  /// `tmrConnect` until it is given up.
  void StartConnection();

  /// Asks the server to close, when logged in. Nothing changes until it does.
  void Disconnect();

  /// The server has answered the login, and the connection has not ended since.
  bool IsLoggedIn() const { return values_.IsConnected; }

  /// The socket's own state, which already holds during the handshake.
  bool IsSocketConnected() const { return wsClient_.IsConnected(); }

  /// Each sends a whole message in one call, or nothing when its condition does not hold; returns
  /// whether the message was sent.
  bool SendIfLoggedIn(std::string_view message);
  bool SendIfSocketConnected(std::string_view message);

  /// The server's answer to the login: takes over the name, then the id, then shows the connected
  /// state. Raises MessageError for a broken answer; the name may then be taken over already.
  void AcceptLogin(std::string_view payload);

 private:
  void ConnectTick();
  void OnConnected();
  void OnClosed();
  void WriteStatus(std::string_view text);

  ClientSocket& wsClient_;
  ConnectionValues& values_;
  ChatOutput& chat_;
  ConnectionDisplay& display_;
  std::string server_address_;
  std::unique_ptr<Timer> tmrConnect_;
};

}  // namespace korvanta

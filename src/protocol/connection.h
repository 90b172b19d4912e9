/// The connection to the game server: connecting, time-out, handshake and end, and how the main
/// window shows them. The login dialog starts it; the dispatcher passes it the answer to the login.
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

/// The program's version as shown and sent: "major.minor".
inline constexpr std::string_view kVersionText = "1.6";

class Connection {
 public:
  /// `server_address` is the game server's IPv4 address; the references outlive the connection.
  Connection(ClientSocket& wsClient, TimerFactory& timers, ConnectionValues& values,
             ChatOutput& chat, ConnectionDisplay& display, std::string server_address);

  /// Connects as `CurrentUserName`, ending any other attempt or connection first. Gives up at the
  /// eighth tick of `tmrConnect`.
  void StartConnection();

  /// If logged in, asks the server to close the connection; nothing changes until it does.
  void Disconnect();

  /// Whether the server has accepted the login on the current connection.
  bool IsLoggedIn() const { return values_.IsConnected; }

  /// The state of the socket, which is connected already during the handshake.
  bool IsSocketConnected() const { return wsClient_.IsConnected(); }

  /// Send a whole message in one call if the condition holds; return whether it was sent.
  bool SendIfLoggedIn(std::string_view message);
  bool SendIfSocketConnected(std::string_view message);

  /// Handles the server's answer to the login: stores the name, then the id, then shows the
  /// connected state. Throws MessageError for a malformed answer, perhaps after storing the name.
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

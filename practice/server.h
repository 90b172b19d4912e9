/// The practice server without its network: it is told what arrives and how time passes, and
/// answers through a transport. The same calls and the same options give the same answers.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include "practice/game/arena.h"
#include "practice/lobby/lobby.h"
#include "practice/players/accounts.h"
#include "practice/players/players.h"
#include "practice/simulation/simulation.h"
#include "practice/tournament/tournament.h"
#include "practice/wire/client_requests.h"
#include "practice/wire/message_stream.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

struct ServerOptions {
  std::uint64_t seed = 0;  ///< of the dice
  int players = 6;         ///< simulated players
  double pace = 1;         ///< how many times faster than usual the game's clock runs
};

class Server {
 public:
  /// How long a connection may stay without a login.
  static constexpr std::chrono::seconds kLoginTime{30};

  /// The transport must outlive the server. `journal` hears one line about each login, logout
  /// and game.
  Server(Transport& transport, const ServerOptions& options,
         std::function<void(std::string_view line)> journal = {});

  void Connected(ConnectionId connection);
  /// Bytes as they come, cut anywhere.
  void Received(ConnectionId connection, std::string_view bytes);
  /// The connection is gone, by whatever cause other than Transport::Close().
  void Vanished(ConnectionId connection);

  /// Time goes on; `now` is counted from the start of the server and never falls. To be called
  /// about ten times a second.
  void Tick(std::chrono::milliseconds now);

  /// Tells everyone who is logged in that the server ends now.
  void SayFarewell();

 private:
  struct Session {
    MessageStream stream;
    std::chrono::milliseconds connected_at;
    Player* player = nullptr;  // null before the login
  };

  void Handle(ConnectionId connection, Session& session, std::string_view message);
  void LogIn(ConnectionId connection, Session& session, const ClientRequest& request);
  void End(ConnectionId connection, std::string_view reason);
  void LogOut(const Session& session);
  void Write(std::string_view line) const;

  Transport& transport_;
  std::function<void(std::string_view)> journal_;
  std::mt19937_64 dice_;
  Accounts accounts_;
  Players players_;
  Tournament tournament_;
  Arena arena_;
  Lobby lobby_;
  Simulation simulation_;
  std::map<ConnectionId, Session> sessions_;
  double pace_;
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds game_now_{0};
};

}  // namespace korvanta::practice

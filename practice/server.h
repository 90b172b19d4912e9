/// The practice server without its network: its caller hands it what arrives and lets time pass,
/// and it answers through a transport. The same calls and the same options give the same answers.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "practice/game/world.h"
#include "practice/lobby/lobby.h"
#include "practice/simulation/simulation.h"
#include "practice/wire/client_requests.h"

namespace korvanta::practice {

struct ServerOptions {
  std::uint64_t seed = 0;  ///< of the dice
  int players = 6;         ///< simulated players
  double pace = 1;         ///< how many times faster than usual the game's clock runs
};

class Server {
 public:
  /// Characters of the longest message taken, its terminator not counted.
  static constexpr std::size_t kLongestMessage = std::size_t{64} * 1024;

  /// The transport must outlive the server.
  Server(Transport& transport, const ServerOptions& options, Journal journal = IgnoreLine);

  void Connected(ConnectionId connection);
  /// Bytes as they come, cut anywhere.
  void Received(ConnectionId connection, std::string_view bytes);
  /// The connection is gone, by whatever cause other than Transport::Close().
  void Vanished(ConnectionId connection);

  /// Time goes on; `now` is counted from the start of the server and never falls. To be called
  /// about ten times a second.
  void Tick(std::chrono::milliseconds now);

  /// Announces the end of the server to everyone who is logged in.
  void SayFarewell() { world_.players.SayToAll(sentences::kFarewell); }

 private:
  struct Session {
    std::string unread;
    std::chrono::milliseconds connected_at;
    Player* player = nullptr;  // null before the login
  };

  void Handle(ConnectionId connection, Session& session, std::string_view message);
  void LogIn(ConnectionId connection, Session& session, const ClientRequest& request);
  void End(ConnectionId connection, Refusal reason, const std::vector<std::string>& values = {});

  Transport& transport_;
  Journal journal_;
  World world_;
  Lobby lobby_{world_};
  Simulation simulation_;
  std::map<ConnectionId, Session> sessions_;
  double pace_;
  std::chrono::milliseconds game_now_{0};
};

}  // namespace korvanta::practice

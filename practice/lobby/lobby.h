/// Where players are once they have logged in: it greets them, and hands on what they ask for to
/// whatever carries it out.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "practice/game/world.h"
#include "practice/wire/client_requests.h"

namespace korvanta::practice {

class Lobby {
 public:
  /// The world must outlive the lobby.
  explicit Lobby(World& world) : world_(world) {}

  /// The account must not be online. The player stays where it is until Leave().
  Player& Enter(ConnectionId connection, Account& account);
  /// The player is gone afterwards; nothing more is sent to its connection.
  void Leave(const Player& player);

  /// Every request is answered, if only by the reason why it is refused. Disconnect and KeepAlive
  /// are not for the lobby.
  void Handle(Player& player, const ClientRequest& request);

  /// Sends the online list to everyone when it is not the one that was sent last: at most every
  /// 100 ms, and less often the more players there are, since what it costs to send it to everyone
  /// grows with the square of the players. To be called as time goes on.
  void SendOnlineList();

 private:
  void SendStatistics(const Player& player, std::string_view name);
  /// Who is online, and how everyone stands.
  std::string OnlineList();

  World& world_;
  std::string sent_list_;
  std::chrono::milliseconds list_due_{0};
};

}  // namespace korvanta::practice

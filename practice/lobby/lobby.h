/// Where players are once they have logged in: it greets them, and hands on what they ask for to
/// whatever carries it out.
#pragma once

#include <chrono>
#include <string_view>
#include <utility>

#include "practice/commands/commands.h"
#include "practice/game/moves.h"
#include "practice/lobby/online_list.h"
#include "practice/players/players.h"
#include "practice/tournament/tournament_desk.h"
#include "practice/wire/client_requests.h"

namespace korvanta::practice {

class Lobby {
 public:
  /// All must outlive the lobby.
  Lobby(Players& players, const Accounts& accounts, Tournament& tournament, Arena& arena,
        Dice& dice);

  /// The account must not be online. The player stays where it is until Leave().
  Player& Enter(ConnectionId connection, Account& account);
  /// The player is gone afterwards; nothing more is sent to its connection.
  void Leave(const Player& player);

  /// Every request is answered, if only by the reason why it is refused. Disconnect and KeepAlive
  /// are not for the lobby.
  void Handle(Player& player, const ClientRequest& request);

  /// Time goes on; `now` is counted from the start of the server and never falls. To be called when
  /// everything else of that moment is done.
  void Tick(std::chrono::milliseconds now);

  void SetChatListener(ChatListener listener) { commands_.on_chat = std::move(listener); }

 private:
  void SendStatistics(const Player& player, std::string_view name);

  Players& players_;
  const Accounts& accounts_;
  Arena& arena_;
  TournamentDesk tournament_desk_;
  Moves moves_;
  CommandContext commands_;
  OnlineList online_list_;
};

}  // namespace korvanta::practice

/// What players see of each other, what they say and what they ask for. The server hands it every
/// request made behind the login; the moves of the game go on to the arena.
#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "practice/game/arena.h"
#include "practice/players/accounts.h"
#include "practice/players/players.h"
#include "practice/tournament/tournament.h"
#include "practice/wire/client_requests.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {

class Lobby {
 public:
  /// All must outlive the lobby.
  Lobby(Players& players, Tournament& tournament, Arena& arena, const Accounts& accounts,
        std::mt19937_64& dice);

  /// The account must not be online. The player stays where it is until Leave().
  Player& Enter(ConnectionId connection, Account& account);
  /// The player is gone afterwards; nothing more is sent to its connection.
  void Leave(const Player& player);

  /// Every request is answered, if only by the reason why it is refused. Login, Disconnect and
  /// KeepAlive are not for the lobby.
  void Handle(Player& player, const ClientRequest& request);

  /// Hears what players say to everyone, and what one tells another. The listener is null when
  /// everyone is meant.
  using Ear =
      std::function<void(const Player& speaker, const Player* listener, std::string_view words)>;
  void ListenWith(Ear ear) { ear_ = std::move(ear); }

  /// Time goes on; `now` is counted from the start of the server and never falls.
  void Tick(std::chrono::milliseconds now);

  /// Sends the online list to everyone if it has changed, and not too soon after the last one: its
  /// cost grows with the square of the players. To be called when everything else is done.
  void SendOnlineListIfDue();

 private:
  using Fields = std::vector<std::string>;
  struct Reaction {
    ClientMessage kind;
    void (*react)(Lobby&, Player&, const Fields&);
  };
  struct Command {
    std::string_view name;
    std::string_view arguments;
    std::string_view purpose;
    void (*run)(Lobby&, Player&, std::string_view arguments);
    bool for_administrators = false;
  };
  static const std::array<Reaction, 16> kReactions;
  static const std::array<Command, 18> kCommands;

  // What the client's windows ask for.
  void Line(Player& player, std::string_view line);
  void SendStatistics(Player& player, std::string_view name);
  void SendTournamentInfo(Player& player);
  void SendTeamList(Player& player);
  void StartTournament(Player& player, const Fields& fields);
  void SetTournamentGame(Player& player);
  void EndTournament(Player& player);
  void JoinTeam(Player& player, std::string_view team, std::string_view password);
  void DisbandTeam(Player& player);
  void KickFromTeam(Player& player, std::string_view name);

  // What a typed line can be.
  void RunCommand(Player& player, std::string_view line);
  void Say(Player& player, std::string_view words);
  void Help(Player& player);
  void Who(Player& player);
  void Tell(Player& player, std::string_view arguments);
  void Reply(Player& player, std::string_view arguments);
  void TeamChat(Player& player, std::string_view arguments);
  void Act(Player& player, std::string_view arguments);
  void Roll(Player& player, std::string_view arguments);
  void Away(Player& player);
  void ShowFigures(Player& player, std::string_view arguments);
  void ShowBest(Player& player);
  void ShowNews(Player& player);
  void Time(Player& player);
  void Announce(Player& player, std::string_view arguments);

  void TellPlayer(Player& teller, std::string_view name, std::string_view words);
  void Welcome(const Player& player);
  bool MayManage(Player& player);
  void TeamsChanged(Player& by);
  std::string OnlineListMessage() const;
  NameColour ColourOf(const Player& player) const;

  /// Null, and told to the asker, when there is none.
  const Account* FindAccount(const Player& asker, std::string_view name);
  void SendToTeam(const Team& team, std::string_view speaker, std::string_view words);

  Players& players_;
  Tournament& tournament_;
  Arena& arena_;
  const Accounts& accounts_;
  std::mt19937_64& dice_;
  Ear ear_ = [](const Player&, const Player*, std::string_view) {};
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds online_list_due_{0};
  bool list_is_old_ = false;
};

}  // namespace korvanta::practice

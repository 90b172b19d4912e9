/// The players who are logged in: what they see of each other, what they say and what they ask for.
/// The server hands it every request made behind the login.
#pragma once

#include <array>
#include <chrono>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include "practice/accounts.h"
#include "practice/client_requests.h"
#include "practice/server_messages.h"
#include "practice/teams.h"
#include "practice/transport.h"

namespace korvanta::practice {

struct Player {
  ConnectionId connection;
  const Account* account;
  std::chrono::milliseconds online_since;
  bool is_away = false;
  bool is_ready = false;      ///< wants to play the next game
  std::string last_teller{};  ///< who "/reply" answers; empty until someone tells

  const std::string& name() const { return account->name; }
};

class Lobby {
 public:
  /// All must outlive the lobby.
  Lobby(Transport& transport, const Accounts& accounts, std::mt19937_64& dice);

  /// Whether a player of that name, in any letter case, is online.
  bool IsOnline(std::string_view name) const;

  /// The account must not be online. The player stays where it is until Leave().
  Player& Enter(ConnectionId connection, const Account& account);
  /// The player is gone afterwards; nothing more is sent to its connection.
  void Leave(const Player& player);

  /// Every request is answered, if only by the reason why it is refused. Login, Disconnect and
  /// KeepAlive are not for the lobby.
  void Handle(Player& player, const ClientRequest& request);

  /// Time goes on; `now` is counted from the start of the server and never falls.
  void Tick(std::chrono::milliseconds now);

  /// Sends the online list to everyone if it has changed, and not too soon after the last one: its
  /// cost grows with the square of the players. To be called when everything else is done.
  void SendOnlineListIfDue();

  /// An announcement of the server's own.
  void AnnounceToAll(std::string_view words);

  /// The text to one player, as "Server: " and the words.
  void Refuse(const Player& player, std::string_view words);

 private:
  using Fields = std::vector<std::string>;
  struct Reaction {
    RequestKind kind;
    void (Lobby::*react)(Player&, const Fields&);
  };
  struct Command {
    std::string_view name;
    std::string_view arguments;
    std::string_view purpose;
    void (Lobby::*run)(Player&, std::string_view arguments);
    bool for_administrators = false;
  };
  static const std::array<Reaction, 16> kReactions;
  static const std::array<Command, 13> kCommands;

  // What the client's windows ask for.
  void Line(Player& player, const Fields& fields);
  void SendStatistics(Player& player, const Fields& fields);
  void EnterGame(Player& player, const Fields& fields);
  void RefuseMove(Player& player, const Fields& fields);
  void SendNews(Player& player, const Fields& fields);
  void SendTournamentInfo(Player& player, const Fields& fields);
  void SendTeamList(Player& player, const Fields& fields);
  void ManageTournament(Player& player, const Fields& fields);
  void JoinTeam(Player& player, const Fields& fields);
  void DisbandTeam(Player& player, const Fields& fields);
  void KickFromTeam(Player& player, const Fields& fields);

  // What a typed line can be.
  void RunCommand(Player& player, std::string_view line);
  void Say(Player& player, std::string_view words);
  void Help(Player& player, std::string_view arguments);
  void Who(Player& player, std::string_view arguments);
  void Tell(Player& player, std::string_view arguments);
  void Reply(Player& player, std::string_view arguments);
  void TeamChat(Player& player, std::string_view arguments);
  void Act(Player& player, std::string_view arguments);
  void Roll(Player& player, std::string_view arguments);
  void Away(Player& player, std::string_view arguments);
  void ShowFigures(Player& player, std::string_view arguments);
  void ShowNews(Player& player, std::string_view arguments);
  void Time(Player& player, std::string_view arguments);
  void Announce(Player& player, std::string_view arguments);

  void TellPlayer(Player& teller, std::string_view name, std::string_view words);
  void Welcome(const Player& player);
  void TeamsChanged(Player& by);
  NameColour ColourOf(const Player& player) const;

  Player* Find(std::string_view name);
  /// Null, and told to the asker, when there is none.
  const Account* FindAccount(const Player& asker, std::string_view name);
  void Answer(const Player& player, std::string_view text);
  void Send(const Player& player, std::string_view message);
  void SendToAll(std::string_view message, const Player* but = nullptr);
  void SendToTeam(const Team& team, std::string_view speaker, std::string_view words);

  Transport& transport_;
  const Accounts& accounts_;
  std::mt19937_64& dice_;
  Teams teams_;
  std::map<std::string, Player> players_;  // by NameKey
  std::chrono::milliseconds now_{0};
  std::chrono::milliseconds online_list_due_{0};
  bool online_list_changed_ = false;
};

}  // namespace korvanta::practice

/// The players who are logged in, and the words that reach them. Lobby, arena and tournament speak
/// to players through it.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "practice/players/accounts.h"
#include "practice/wire/transport.h"

namespace korvanta::practice {

struct Player {
  ConnectionId connection;  ///< kNoConnection for a simulated player
  Account* account;
  std::chrono::milliseconds online_since;
  bool is_away = false;
  bool is_ready = false;      ///< wants to play the next game
  std::string last_teller{};  ///< who "/reply" answers; empty until someone tells

  const std::string& name() const { return account->name; }
  bool IsSimulated() const { return connection == kNoConnection; }
};

class Players {
 public:
  /// The transport must outlive this.
  explicit Players(Transport& transport) : transport_(transport) {}

  /// The account must not be online. The player stays where it is until it is removed.
  Player& Add(ConnectionId connection, Account& account, std::chrono::milliseconds now);
  void Remove(const Player& player);

  /// By name in any letter case; null when nobody of that name is online.
  Player* Find(std::string_view name);
  /// By NameKey.
  const std::map<std::string, Player>& all() const { return players_; }
  std::map<std::string, Player>& all() { return players_; }

  /// Those who are not simulated.
  std::size_t people() const { return people_.size(); }

  /// Whole messages.
  void Send(const Player& player, std::string_view messages);
  void SendToAll(std::string_view messages, const Player* but = nullptr);

  /// A line in black to one player.
  void Answer(const Player& player, std::string_view text);
  /// Why something was not done, as "Server: " and the words.
  void Refuse(const Player& player, std::string_view words);
  /// An announcement of the server's own.
  void Announce(const Player& player, std::string_view words);
  void AnnounceToAll(std::string_view words);

  /// Something that the online list shows is about to be another.
  void ListChanges() { list_changed_ = true; }
  /// Whether it was since the last call.
  bool TakeListChange() { return std::exchange(list_changed_, false); }

 private:
  Transport& transport_;
  std::map<std::string, Player> players_;
  std::map<ConnectionId, const Player*> people_;  // those who can be reached
  bool list_changed_ = false;
};

}  // namespace korvanta::practice

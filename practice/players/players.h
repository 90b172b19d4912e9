/// The players who are logged in, and what is sent to them.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "practice/base/player_text.h"
#include "practice/players/accounts.h"
#include "practice/wire/server_messages.h"
#include "practice/wire/transport.h"
#include "practice/words/sentences.h"

namespace korvanta::practice {

/// Gets one line about each login, logout and game.
using Journal = std::function<void(std::string_view line)>;
inline void IgnoreLine(std::string_view /*line*/) {}

struct Player {
  ConnectionId connection;  ///< kNoConnection for a simulated player
  Account* account;
  std::chrono::milliseconds online_since;
  bool is_away = false;
  bool is_ready = false;       ///< plays, or wants to play the next game
  std::string last_speaker{};  ///< the last who spoke to it alone, whom "/reply" answers

  const std::string& name() const { return account->name; }
  bool IsSimulated() const { return connection == kNoConnection; }
};

class Players {
 public:
  /// The transport must outlive this.
  explicit Players(Transport& transport) : transport_(transport) {}

  /// The account must not be online. The player stays where it is until it is removed.
  Player& Add(ConnectionId connection, Account& account, std::chrono::milliseconds now) {
    Player& player =
        players_.emplace(NameKey(account.name), Player{connection, &account, now}).first->second;
    if (!player.IsSimulated()) {
      people_.emplace(connection, &player);
    }
    return player;
  }
  void Remove(const Player& player) {
    people_.erase(player.connection);
    players_.erase(players_.find(NameKey(player.name())));
  }

  /// By name in any letter case; null when nobody of that name is online.
  Player* Find(std::string_view name) {
    const auto found = players_.find(NameKey(name));
    return found == players_.end() ? nullptr : &found->second;
  }
  /// By NameKey.
  const std::map<std::string, Player>& all() const { return players_; }
  std::map<std::string, Player>& all() { return players_; }

  /// How many are not simulated.
  std::size_t people() const { return people_.size(); }

  /// Whole messages. Nothing is sent to a simulated player.
  void Send(const Player& player, std::string_view messages) {
    if (!player.IsSimulated()) {
      transport_.Send(player.connection, messages);
    }
  }
  /// To the account's player, who may be offline.
  void Send(const Account& account, std::string_view messages) {
    if (const Player* player = Find(account.name)) {
      Send(*player, messages);
    }
  }
  void SendToAll(std::string_view messages, const Player* except = nullptr) {
    for (const auto& [connection, player] : people_) {
      if (player != except) {
        transport_.Send(connection, messages);
      }
    }
  }

  /// The sentence with its values, which may be texts or numbers.
  template <typename... Values>
  void Say(const Player& player, const Sentence& sentence, const Values&... values) {
    Send(player, LineOf(sentence, {FieldText(values)...}));
  }
  template <typename... Values>
  void SayToAll(const Sentence& sentence, const Values&... values) {
    SendToAll(LineOf(sentence, {FieldText(values)...}));
  }
  /// Whether something was refused; the player is then told why.
  template <typename... Values>
  bool Refuse(const Player& player, Refusal refusal, const Values&... values) {
    if (refusal != Refusal::None) {
      Say(player, SentenceFor(refusal), values...);
    }
    return refusal != Refusal::None;
  }
  /// A line in black to one player.
  void Answer(const Player& player, std::string_view text) {
    Send(player, ChatLine(MessageKind::Status, text));
  }

 private:
  Transport& transport_;
  std::map<std::string, Player> players_;
  std::map<ConnectionId, const Player*> people_;
};

}  // namespace korvanta::practice

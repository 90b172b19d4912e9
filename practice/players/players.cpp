#include "practice/players/players.h"

#include "practice/base/player_text.h"

namespace korvanta::practice {

Player& Players::Add(ConnectionId connection, Account& account, std::chrono::milliseconds now) {
  Player& player =
      players_.try_emplace(NameKey(account.name), Player{connection, &account, now}).first->second;
  if (!player.IsSimulated()) {
    people_.emplace(connection, &player);
  }
  return player;
}

void Players::Remove(const Player& player) {
  people_.erase(player.connection);
  players_.erase(players_.find(NameKey(player.name())));
}

Player* Players::Find(std::string_view name) {
  const auto found = players_.find(NameKey(name));
  return found == players_.end() ? nullptr : &found->second;
}

void Players::Send(const Player& player, std::string_view messages) {
  if (!player.IsSimulated()) {
    transport_.Send(player.connection, messages);
  }
}

void Players::SendToAll(std::string_view messages, const Player* except) {
  for (const auto& [connection, player] : people_) {
    if (player != except) {
      transport_.Send(connection, messages);
    }
  }
}

void Players::Answer(const Player& player, std::string_view text) {
  Send(player, ChatLine(MessageKind::Status, text));
}

}  // namespace korvanta::practice

#include "practice/players/players.h"

#include "practice/wire/player_text.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {

Player& Players::Add(ConnectionId connection, Account& account, std::chrono::milliseconds now) {
  ListChanges();
  Player& player =
      players_.try_emplace(NameKey(account.name), Player{connection, &account, now}).first->second;
  if (!player.IsSimulated()) {
    people_.emplace(connection, &player);
  }
  return player;
}

void Players::Remove(const Player& player) {
  ListChanges();
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

void Players::SendToAll(std::string_view messages, const Player* but) {
  for (const auto& [connection, player] : people_) {
    if (player != but) {
      transport_.Send(connection, messages);
    }
  }
}

void Players::Answer(const Player& player, std::string_view text) {
  Send(player, messages::StatusLine(text));
}

void Players::Refuse(const Player& player, std::string_view words) {
  Send(player, messages::ChatLine(MessageKind::Admin, "Server", words));
}

void Players::Announce(const Player& player, std::string_view words) {
  Send(player, messages::ChatLine(MessageKind::Announcement, "Korvanta", words));
}

void Players::AnnounceToAll(std::string_view words) {
  SendToAll(messages::ChatLine(MessageKind::Announcement, "Korvanta", words));
}

}  // namespace korvanta::practice

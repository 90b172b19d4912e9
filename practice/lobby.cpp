#include "practice/lobby.h"

#include <algorithm>
#include <vector>

#include "practice/news_text.h"
#include "practice/player_text.h"

namespace korvanta::practice {
namespace {

using std::chrono::milliseconds;

/// From one online list to the next, at least.
constexpr milliseconds kOnlineListPause{100};
constexpr milliseconds kOnlineListPausePerPlayer{1};

constexpr std::string_view kNoGame =
    "No game is running yet, so there is nothing to research, attack or ally for.";

}  // namespace

const std::array<Lobby::Reaction, 16> Lobby::kReactions = {{
    {RequestKind::Line, &Lobby::Line},
    {RequestKind::FormAlliance, &Lobby::RefuseMove},
    {RequestKind::Attack, &Lobby::RefuseMove},
    {RequestKind::Statistics, &Lobby::SendStatistics},
    {RequestKind::EnterGame, &Lobby::EnterGame},
    {RequestKind::TopicInformation, &Lobby::RefuseMove},
    {RequestKind::Research, &Lobby::RefuseMove},
    {RequestKind::News, &Lobby::SendNews},
    {RequestKind::TournamentInfo, &Lobby::SendTournamentInfo},
    {RequestKind::TeamList, &Lobby::SendTeamList},
    {RequestKind::StartTournament, &Lobby::ManageTournament},
    {RequestKind::SetTournamentGame, &Lobby::ManageTournament},
    {RequestKind::EndTournament, &Lobby::ManageTournament},
    {RequestKind::JoinTeam, &Lobby::JoinTeam},
    {RequestKind::DisbandTeam, &Lobby::DisbandTeam},
    {RequestKind::KickPlayer, &Lobby::KickFromTeam},
}};

Lobby::Lobby(Transport& transport, const Accounts& accounts, std::mt19937_64& dice)
    : transport_(transport), accounts_(accounts), dice_(dice) {}

bool Lobby::IsOnline(std::string_view name) const { return players_.contains(NameKey(name)); }

Player& Lobby::Enter(ConnectionId connection, const Account& account) {
  Player& player =
      players_.try_emplace(NameKey(account.name), Player{connection, &account, now_}).first->second;
  Send(player, messages::LoginAccepted(account.name, account.user_id));
  SendToAll(messages::Notice(account.name + " logged in"), &player);
  Welcome(player);
  online_list_changed_ = true;
  return player;
}

void Lobby::Leave(const Player& player) {
  const std::string& name = player.name();
  players_.erase(NameKey(name));
  SendToAll(messages::Notice(name + " logged out"));
  online_list_changed_ = true;
}

void Lobby::Handle(Player& player, const ClientRequest& request) {
  if (!request.is_complete) {
    Refuse(player, "That request lacks a part and was not understood.");
    return;
  }
  const auto reaction =
      std::find_if(kReactions.begin(), kReactions.end(),
                   [&](const Reaction& known) { return known.kind == request.kind; });
  if (reaction != kReactions.end()) {
    (this->*reaction->react)(player, request.fields);
  }
}

void Lobby::Tick(milliseconds now) { now_ = now; }

void Lobby::SendOnlineListIfDue() {
  if (!online_list_changed_ || now_ < online_list_due_) {
    return;
  }
  std::vector<OnlineEntry> entries;
  entries.reserve(players_.size());
  for (const auto& [key, player] : players_) {
    entries.push_back(
        {player.name(), ColourOf(player), PlayerLevel(player.account->figures), player.is_ready});
  }
  SendToAll(messages::OnlineList(entries));
  online_list_changed_ = false;
  online_list_due_ = now_ + kOnlineListPause + players_.size() * kOnlineListPausePerPlayer;
}

void Lobby::Refuse(const Player& player, std::string_view words) {
  Send(player, messages::ChatLine(MessageKind::Admin, "Server", words));
}

void Lobby::AnnounceToAll(std::string_view words) {
  SendToAll(messages::ChatLine(MessageKind::Announcement, "Korvanta", words));
}

void Lobby::Welcome(const Player& player) {
  const auto announce = [&](const std::string& words) {
    Send(player, messages::ChatLine(MessageKind::Announcement, "Korvanta", words));
  };
  announce("Welcome, " + player.name() + "! Type a line and press Enter to talk to everyone here.");
  announce("Type /help for all commands, /who to see who is here, /news for what this is about.");
  if (player.account->IsAdministrator()) {
    Refuse(player, "You are the administrator of this server: /announce speaks to everyone.");
  }
}

const Account* Lobby::FindAccount(const Player& asker, std::string_view name) {
  const Account* account = accounts_.Find(Trimmed(name));
  if (account == nullptr) {
    Refuse(asker, "Nobody named \"" + std::string(name.substr(0, kLongestName)) +
                      "\" has been here since the server was started.");
  }
  return account;
}

void Lobby::SendStatistics(Player& player, const Fields& fields) {
  if (const Account* account = FindAccount(player, fields[0])) {
    Send(player, messages::Statistics({account->name, "None", account->number, account->figures}));
  }
}

void Lobby::EnterGame(Player& player, const Fields& /*fields*/) {
  Answer(player, "No game is running yet. You are marked in the online list as ready to play.");
  online_list_changed_ |= !player.is_ready || player.is_away;
  player.is_ready = true;
  player.is_away = false;
}

void Lobby::RefuseMove(Player& player, const Fields& /*fields*/) { Refuse(player, kNoGame); }

void Lobby::SendNews(Player& player, const Fields& /*fields*/) {
  Send(player, messages::News(kNewsText));
}

NameColour Lobby::ColourOf(const Player& player) const {
  if (player.is_away) {
    return NameColour::Away;
  }
  if (player.account->IsAdministrator()) {
    return NameColour::Administrator;
  }
  return teams_.TeamOf(player.name()) != nullptr ? NameColour::InTeam : NameColour::Visitor;
}

Player* Lobby::Find(std::string_view name) {
  const auto found = players_.find(NameKey(name));
  return found == players_.end() ? nullptr : &found->second;
}

void Lobby::Answer(const Player& player, std::string_view text) {
  Send(player, messages::StatusLine(text));
}

void Lobby::Send(const Player& player, std::string_view message) {
  transport_.Send(player.connection, message);
}

void Lobby::SendToAll(std::string_view message, const Player* but) {
  for (const auto& [key, player] : players_) {
    if (&player != but) {
      Send(player, message);
    }
  }
}

}  // namespace korvanta::practice

#include "practice/lobby/lobby.h"

#include <algorithm>
#include <vector>

#include "practice/wire/player_text.h"
#include "practice/words/news_text.h"

namespace korvanta::practice {
namespace {

using std::chrono::milliseconds;

/// From one online list to the next, at least.
constexpr milliseconds kOnlineListPause{100};
/// For each thousand entries that it costs to tell everyone.
constexpr milliseconds kOnlineListPausePerThousand{1};

}  // namespace

const std::array<Lobby::Reaction, 16> Lobby::kReactions = {{
    {ClientMessage::ChatLine,
     [](Lobby& lobby, Player& player, const Fields& fields) { lobby.Line(player, fields[0]); }},
    {ClientMessage::FormAlliance,
     [](Lobby& lobby, Player& player, const Fields& fields) {
       lobby.arena_.Ally(player, fields[0]);
     }},
    {ClientMessage::AttackPlayer,
     [](Lobby& lobby, Player& player, const Fields& fields) {
       lobby.arena_.Attack(player, fields[0]);
     }},
    {ClientMessage::LookUpStatistics,
     [](Lobby& lobby, Player& player, const Fields& fields) {
       lobby.SendStatistics(player, fields[0]);
     }},
    {ClientMessage::EnterGame,
     [](Lobby& lobby, Player& player, const Fields&) { lobby.arena_.Enter(player); }},
    {ClientMessage::TopicInformation,
     [](Lobby& lobby, Player& player, const Fields& fields) {
       lobby.arena_.Explain(player, fields[0]);
     }},
    {ClientMessage::ResearchTopic,
     [](Lobby& lobby, Player& player, const Fields& fields) {
       lobby.arena_.Research(player, fields[0], fields[1]);
     }},
    {ClientMessage::RequestNews,
     [](Lobby& lobby, Player& player, const Fields&) {
       lobby.players_.Send(player, messages::News(kNewsText));
     }},
    {ClientMessage::RequestTournamentInfo,
     [](Lobby& lobby, Player& player, const Fields&) { lobby.SendTournamentInfo(player); }},
    {ClientMessage::RequestTeamList,
     [](Lobby& lobby, Player& player, const Fields&) { lobby.SendTeamList(player); }},
    {ClientMessage::StartTournament,
     [](Lobby& lobby, Player& player, const Fields& fields) {
       lobby.StartTournament(player, fields);
     }},
    {ClientMessage::SetTournamentGame,
     [](Lobby& lobby, Player& player, const Fields&) { lobby.SetTournamentGame(player); }},
    {ClientMessage::EndTournament,
     [](Lobby& lobby, Player& player, const Fields&) { lobby.EndTournament(player); }},
    {ClientMessage::JoinTeam,
     [](Lobby& lobby, Player& player,
        const Fields& fields) { lobby.JoinTeam(player, fields[0], fields[1]); }},
    {ClientMessage::DisbandTeam,
     [](Lobby& lobby, Player& player, const Fields&) { lobby.DisbandTeam(player); }},
    {ClientMessage::KickPlayer,
     [](Lobby& lobby, Player& player,
        const Fields& fields) { lobby.KickFromTeam(player, fields[0]); }},
}};

Lobby::Lobby(Players& players, Tournament& tournament, Arena& arena, const Accounts& accounts,
             std::mt19937_64& dice)
    : players_(players), tournament_(tournament), arena_(arena), accounts_(accounts), dice_(dice) {}

Player& Lobby::Enter(ConnectionId connection, Account& account) {
  Player& player = players_.Add(connection, account, now_);
  players_.Send(player, messages::LoginAccepted(account.name, account.user_id));
  players_.SendToAll(messages::Notice(account.name + " logged in"), &player);
  Welcome(player);
  if (!player.IsSimulated() && now_ < online_list_due_) {
    players_.Send(player, OnlineListMessage());
  }
  return player;
}

void Lobby::Leave(const Player& player) {
  const Account& account = *player.account;
  players_.Remove(player);
  players_.SendToAll(messages::Notice(account.name + " logged out"));
  arena_.Forget(account);
}

void Lobby::Handle(Player& player, const ClientRequest& request) {
  if (!request.is_complete) {
    players_.Refuse(player, "That request lacks a part and was not understood.");
    return;
  }
  const auto reaction =
      std::find_if(kReactions.begin(), kReactions.end(),
                   [&](const Reaction& known) { return known.kind == request.kind; });
  if (reaction != kReactions.end()) {
    reaction->react(*this, player, request.fields);
  }
}

void Lobby::Tick(milliseconds now) { now_ = now; }

void Lobby::SendOnlineListIfDue() {
  list_is_old_ |= players_.TakeListChange();
  if (!list_is_old_ || now_ < online_list_due_) {
    return;
  }
  players_.SendToAll(OnlineListMessage());
  list_is_old_ = false;
  online_list_due_ =
      now_ + kOnlineListPause +
      kOnlineListPausePerThousand * (players_.all().size() * players_.people()) / 1000;
}

std::string Lobby::OnlineListMessage() const {
  const auto& all = std::as_const(players_).all();
  std::vector<OnlineEntry> entries;
  entries.reserve(all.size());
  for (const auto& [key, player] : all) {
    entries.push_back(
        {player.name(), ColourOf(player), PlayerLevel(player.account->figures), player.is_ready});
  }
  return messages::OnlineList(entries);
}

void Lobby::Welcome(const Player& player) {
  players_.Announce(player,
                    "Welcome, " + player.name() +
                        "! Choose \"Enter Game\" (Ctrl+E) to play; right-click a box of the "
                        "board to research it.");
  players_.Announce(player,
                    "Type a line and press Enter to talk. /help lists all commands, /news tells "
                    "how the game goes.");
  if (player.account->IsAdministrator()) {
    players_.Refuse(player,
                    "You are the administrator of this server: /announce speaks to everyone, and "
                    "the tournament window has a page of yours.");
  }
}

const Account* Lobby::FindAccount(const Player& asker, std::string_view name) {
  const Account* account = accounts_.Find(Trimmed(name));
  if (account == nullptr) {
    players_.Refuse(asker, "Nobody named \"" + std::string(name.substr(0, kLongestName)) +
                               "\" has been here since the server was started.");
  }
  return account;
}

void Lobby::SendStatistics(Player& player, std::string_view name) {
  const Account* account = FindAccount(player, name);
  if (account == nullptr) {
    return;
  }
  const Contender* contender = arena_.game() == nullptr ? nullptr : arena_.game()->Find(*account);
  const bool is_allied = contender != nullptr && contender->ally != nullptr;
  players_.Send(player,
                messages::Statistics({account->name, is_allied ? contender->ally->name() : "None",
                                      account->number, account->figures}));
}

/// The first of these that holds, so that what matters most in a game shows.
NameColour Lobby::ColourOf(const Player& player) const {
  const Contender* contender = arena_.ContenderOf(player);
  if (contender != nullptr && contender->IsNearWinning()) {
    return NameColour::NearWinning;
  }
  if (contender != nullptr) {
    return contender->ally != nullptr ? NameColour::Allied : NameColour::Playing;
  }
  if (player.is_away) {
    return NameColour::Away;
  }
  if (player.account->IsAdministrator()) {
    return NameColour::Administrator;
  }
  if (tournament_.teams.TeamOf(player.name()) != nullptr) {
    return NameColour::InTeam;
  }
  return player.IsSimulated() ? NameColour::Simulated : NameColour::Visitor;
}

}  // namespace korvanta::practice

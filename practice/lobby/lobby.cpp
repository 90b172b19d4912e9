#include "practice/lobby/lobby.h"

#include <string>
#include <vector>

#include "base/trim.h"
#include "practice/base/player_text.h"
#include "practice/wire/server_messages.h"
#include "practice/words/news_text.h"

namespace korvanta::practice {
namespace {

/// The record that fills a statistics window. `ally` is empty for a player without one.
std::string StatisticsMessage(const Account& account, std::string_view ally) {
  const Figures& figures = account.figures;
  std::vector<std::string> awards;
  for (int code : figures.AwardCodes()) {
    awards.push_back(std::to_string(code));
  }
  return Message<ServerMessage::Statistics>(
      account.name, ally.empty() ? "None" : ally, account.number, figures.wins,
      figures.games_played, figures.research, figures.research_lost, figures.research_destroyed,
      figures.alliance_screw_overs, figures.score, figures.blocks, figures.alliance_wins,
      Joined(awards, {&kRecordSeparator, 1}));
}

/// A record of zeros for a name that nobody has, so that the window shows that.
std::string EmptyStatisticsMessage(std::string_view name) {
  Account nobody;
  nobody.name = name.substr(0, kLongestName);
  // A client tests the payload for tags, too.
  std::erase(nobody.name, '[');
  return StatisticsMessage(nobody, "Unknown player");
}

}  // namespace

Lobby::Lobby(Players& players, const Accounts& accounts, Tournament& tournament, Arena& arena,
             Dice& dice)
    : players_(players),
      accounts_(accounts),
      arena_(arena),
      tournament_desk_(players, accounts, tournament),
      moves_(players, arena),
      commands_{players, accounts, tournament_desk_, arena, moves_, dice},
      online_list_(players, arena, tournament) {}

Player& Lobby::Enter(ConnectionId connection, Account& account) {
  Player& player = players_.Add(connection, account, commands_.now);
  players_.SendToAll(Message<ServerMessage::LoginNotice>(account.name + " logged in"), &player);
  if (player.IsSimulated()) {
    return player;
  }
  players_.Send(player, Message<ServerMessage::LoginAccepted>(account.name, account.user_id));
  players_.Say(player, sentences::kWelcome, account.name);
  players_.Say(player, sentences::kFirstSteps);
  if (account.IsAdministrator()) {
    players_.Say(player, sentences::kAdministratorWelcome);
  }
  arena_.Welcome(player);
  online_list_.SendTo(player);
  return player;
}

void Lobby::Leave(const Player& player) {
  const Account& account = *player.account;
  players_.Remove(player);
  players_.SendToAll(Message<ServerMessage::LoginNotice>(account.name + " logged out"));
  arena_.Forget(account);
}

void Lobby::Handle(Player& player, const ClientRequest& request) {
  if (!request.is_complete) {
    players_.Refuse(player, Refusal::IncompleteMessage);
    return;
  }
  const auto& fields = request.fields;
  switch (request.kind) {
    case ClientMessage::Login:
      players_.Refuse(player, Refusal::LoggedInAlready);
      return;
    case ClientMessage::Disconnect:
    case ClientMessage::KeepAlive:
      return;
    case ClientMessage::ChatLine:
      return RunCommand(commands_, player, fields[0]);
    case ClientMessage::FormAlliance:
      return moves_.Ally(player, fields[0]);
    case ClientMessage::AttackPlayer:
      return moves_.Attack(player, fields[0]);
    case ClientMessage::LookUpStatistics:
      return SendStatistics(player, fields[0]);
    case ClientMessage::EnterGame:
      return arena_.Enter(player);
    case ClientMessage::TopicInformation:
      return moves_.Explain(player, fields[0]);
    case ClientMessage::ResearchTopic:
      return moves_.Research(player, fields[0], fields[1]);
    case ClientMessage::RequestNews:
      return players_.Send(player, Message<ServerMessage::News>(kNewsText));
    case ClientMessage::RequestTournamentInfo:
      return tournament_desk_.SendInfo(player);
    case ClientMessage::RequestTeamList:
      return tournament_desk_.SendTeamList(player);
    case ClientMessage::StartTournament:
      return tournament_desk_.Start(player, fields[0], fields[1], fields[2]);
    case ClientMessage::SetTournamentGame:
      return tournament_desk_.SetGame(player);
    case ClientMessage::EndTournament:
      return tournament_desk_.End(player);
    case ClientMessage::JoinTeam:
      return tournament_desk_.Join(player, fields[0], fields[1]);
    case ClientMessage::DisbandTeam:
      return tournament_desk_.Disband(player);
    case ClientMessage::KickPlayer:
      return tournament_desk_.Kick(player, fields[0]);
  }
}

void Lobby::Tick(std::chrono::milliseconds now) {
  commands_.now = now;
  online_list_.SendIfDue(now);
}

void Lobby::SendStatistics(const Player& player, std::string_view name) {
  const Account* account = accounts_.Find(TrimSpaces(name));
  if (account == nullptr) {
    players_.Send(player, EmptyStatisticsMessage(TrimSpaces(name)));
    players_.Refuse(player, Refusal::UnknownPlayer, name.substr(0, kLongestName));
    return;
  }
  Game* game = arena_.game();
  const Contender* contender = game == nullptr ? nullptr : game->Find(*account);
  const bool is_allied = contender != nullptr && contender->ally != nullptr;
  players_.Send(player, StatisticsMessage(*account, is_allied ? contender->ally->name() : ""));
}

}  // namespace korvanta::practice

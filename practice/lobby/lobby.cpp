#include "practice/lobby/lobby.h"

#include <map>
#include <set>
#include <vector>

#include "base/trim.h"
#include "practice/base/player_text.h"
#include "practice/commands/commands.h"
#include "practice/game/moves.h"
#include "practice/wire/server_messages.h"
#include "practice/words/news_text.h"

namespace korvanta::practice {
namespace {

/// From one online list to the next, at least.
constexpr std::chrono::milliseconds kOnlineListPause{100};
/// More for each thousand entries that go out.
constexpr std::chrono::milliseconds kPausePerThousandEntries{1};

/// By its code on the wire.
enum class NameColour { DarkYellow = 1, Grey, Purple, Green, Blue, Turquoise, Red, Orange };

/// The first of these that holds, so that what matters most in a game shows.
NameColour ColourOf(const Player& player, const Contender* contender, bool is_in_team) {
  if (contender != nullptr) {
    return contender->IsNearWinning()   ? NameColour::Red
           : contender->ally != nullptr ? NameColour::Purple
                                        : NameColour::Turquoise;
  }
  return player.is_away                      ? NameColour::Grey
         : player.account->IsAdministrator() ? NameColour::DarkYellow
         : is_in_team                        ? NameColour::Green
         : player.IsSimulated()              ? NameColour::Orange
                                             : NameColour::Blue;
}

}  // namespace

Player& Lobby::Enter(ConnectionId connection, Account& account) {
  Player& player = world_.players.Add(connection, account, world_.now);
  world_.players.SendToAll(Message<ServerMessage::LoginNotice>(account.name + " logged in"),
                           &player);
  if (player.IsSimulated()) {
    return player;
  }
  world_.players.Send(player, Message<ServerMessage::LoginAccepted>(account.name, account.user_id));
  world_.players.Say(player, sentences::kWelcome, account.name);
  world_.players.Say(player, sentences::kFirstSteps);
  if (account.IsAdministrator()) {
    world_.players.Say(player, sentences::kAdministratorWelcome);
  }
  world_.arena.Welcome(player);
  world_.players.Send(player, OnlineList());
  return player;
}

void Lobby::Leave(const Player& player) {
  const Account& account = *player.account;
  world_.players.Remove(player);
  world_.players.SendToAll(Message<ServerMessage::LoginNotice>(account.name + " logged out"));
  world_.arena.Forget(account);
}

void Lobby::Handle(Player& player, const ClientRequest& request) {
  if (!request.is_complete) {
    world_.players.Refuse(player, Refusal::IncompleteMessage);
    return;
  }
  const auto& fields = request.fields;
  switch (request.kind) {
    case ClientMessage::Login:
      world_.players.Refuse(player, Refusal::LoggedInAlready);
      return;
    case ClientMessage::Disconnect:
    case ClientMessage::KeepAlive:
      return;
    case ClientMessage::ChatLine:
      return RunCommand(world_, player, fields[0]);
    case ClientMessage::FormAlliance:
      return Ally(world_, player, fields[0]);
    case ClientMessage::AttackPlayer:
      return Attack(world_, player, fields[0]);
    case ClientMessage::LookUpStatistics:
      return SendStatistics(player, fields[0]);
    case ClientMessage::EnterGame:
      return world_.arena.Enter(player);
    case ClientMessage::TopicInformation:
      return ExplainTopic(world_, player, fields[0]);
    case ClientMessage::ResearchTopic:
      return Research(world_, player, fields[0], fields[1]);
    case ClientMessage::RequestNews:
      return world_.players.Send(player, Message<ServerMessage::News>(kNewsText));
    case ClientMessage::RequestTournamentInfo:
      return world_.tournament.SendInfo(player);
    case ClientMessage::RequestTeamList:
      return world_.tournament.SendTeamList(player);
    case ClientMessage::StartTournament:
      return world_.tournament.Open(player, fields[0], fields[1], fields[2]);
    case ClientMessage::SetTournamentGame:
      return world_.tournament.SetGame(player);
    case ClientMessage::EndTournament:
      return world_.tournament.End(player);
    case ClientMessage::JoinTeam:
      return world_.tournament.Join(player, fields[0], fields[1]);
    case ClientMessage::DisbandTeam:
      return world_.tournament.Disband(player);
    case ClientMessage::KickPlayer:
      return world_.tournament.Kick(player, fields[0]);
  }
}

void Lobby::SendOnlineList() {
  if (world_.now < list_due_ || world_.players.people() == 0) {
    return;
  }
  const auto entries = world_.players.all().size() * world_.players.people();
  list_due_ = world_.now + kOnlineListPause + kPausePerThousandEntries * entries / 1000;
  if (std::string list = OnlineList(); list != sent_list_) {
    world_.players.SendToAll(list);
    sent_list_ = std::move(list);
  }
}

void Lobby::SendStatistics(const Player& player, std::string_view name) {
  Account nobody;  // whose zeros the window shows for a name that nobody has
  nobody.name = TrimSpaces(name).substr(0, kLongestName);
  std::erase(nobody.name, '[');  // a client tests the payload for tags, too
  const Account* known = world_.accounts.Find(TrimSpaces(name));
  const Account& account = known == nullptr ? nobody : *known;
  const Contender* contender = world_.arena.SeatOf(account);
  const std::string ally = known == nullptr ? "Unknown player"
                           : contender == nullptr || contender->ally == nullptr
                               ? "None"
                               : contender->ally->name();
  const Figures& figures = account.figures;
  world_.players.Send(
      player, Message<ServerMessage::Statistics>(
                  account.name, ally, account.number, figures.wins, figures.games_played,
                  figures.research, figures.research_lost, figures.research_destroyed,
                  figures.alliance_screw_overs, figures.score, figures.blocks,
                  figures.alliance_wins, Joined(figures.AwardCodes(), {&kRecordSeparator, 1})));
  if (known == nullptr) {
    world_.players.Refuse(player, Refusal::UnknownPlayer, name.substr(0, kLongestName));
  }
}

std::string Lobby::OnlineList() {
  // Looked up once for all, since thousands of players may be in one game.
  std::map<const Account*, const Contender*> contenders;
  if (const Game* game = world_.arena.game()) {
    for (const Contender& contender : game->contenders()) {
      contenders.emplace(contender.account, &contender);
    }
  }
  std::set<const Account*> team_members;
  for (const Team& team : world_.tournament.teams()) {
    team_members.insert(team.members.begin(), team.members.end());
  }
  std::vector<std::string> records;
  for (const auto& [key, player] : world_.players.all()) {
    const auto contender = contenders.find(player.account);
    const NameColour colour =
        ColourOf(player, contender == contenders.end() ? nullptr : contender->second,
                 team_members.contains(player.account));
    records.push_back(
        Record(player.name(), colour, player.account->figures.PlayerLevel(), player.is_ready));
  }
  return BuildMessage(TagOf(ServerMessage::OnlineList), {Joined(records, {&kRecordSeparator, 1})});
}

}  // namespace korvanta::practice

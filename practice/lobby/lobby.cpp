#include "practice/lobby/lobby.h"

#include <map>
#include <set>
#include <vector>

#include "base/trim.h"
#include "practice/base/player_text.h"
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

Lobby::Lobby(Players& players, const Accounts& accounts, Tournament& tournament, Arena& arena,
             Dice& dice)
    : players_(players),
      accounts_(accounts),
      tournament_(tournament),
      arena_(arena),
      tournament_desk_(players, accounts, tournament),
      moves_(players, arena),
      commands_{players, accounts, tournament_desk_, arena, moves_, dice} {}

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
  players_.Send(player, OnlineList());
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
  if (now < list_due_ || players_.people() == 0) {
    return;
  }
  const auto entries = players_.all().size() * players_.people();
  list_due_ = now + kOnlineListPause + kPausePerThousandEntries * entries / 1000;
  if (std::string list = OnlineList(); list != sent_list_) {
    players_.SendToAll(list);
    sent_list_ = std::move(list);
  }
}

void Lobby::SendStatistics(const Player& player, std::string_view name) {
  Account nobody;  // whose zeros the window shows for a name that nobody has
  nobody.name = TrimSpaces(name).substr(0, kLongestName);
  std::erase(nobody.name, '[');  // a client tests the payload for tags, too
  const Account* known = accounts_.Find(TrimSpaces(name));
  const Account& account = known == nullptr ? nobody : *known;
  const Contender* contender = arena_.SeatOf(account);
  const std::string ally = known == nullptr ? "Unknown player"
                           : contender == nullptr || contender->ally == nullptr
                               ? "None"
                               : contender->ally->name();
  const Figures& figures = account.figures;
  players_.Send(player,
                Message<ServerMessage::Statistics>(
                    account.name, ally, account.number, figures.wins, figures.games_played,
                    figures.research, figures.research_lost, figures.research_destroyed,
                    figures.alliance_screw_overs, figures.score, figures.blocks,
                    figures.alliance_wins, Joined(figures.AwardCodes(), {&kRecordSeparator, 1})));
  if (known == nullptr) {
    players_.Refuse(player, Refusal::UnknownPlayer, name.substr(0, kLongestName));
  }
}

std::string Lobby::OnlineList() {
  // Looked up once for all, since thousands of players may be in one game.
  std::map<const Account*, const Contender*> contenders;
  if (const Game* game = arena_.game()) {
    for (const Contender& contender : game->contenders()) {
      contenders.emplace(contender.account, &contender);
    }
  }
  std::set<std::string> team_members;
  for (const Team& team : tournament_.teams()) {
    for (const std::string& member : team.members) {
      team_members.insert(NameKey(member));
    }
  }
  std::vector<std::string> records;
  for (const auto& [key, player] : players_.all()) {
    const auto contender = contenders.find(player.account);
    const NameColour colour =
        ColourOf(player, contender == contenders.end() ? nullptr : contender->second,
                 team_members.contains(key));
    records.push_back(
        Record(player.name(), colour, player.account->figures.PlayerLevel(), player.is_ready));
  }
  return BuildMessage(TagOf(ServerMessage::OnlineList), {Joined(records, {&kRecordSeparator, 1})});
}

}  // namespace korvanta::practice

#include "practice/tournament/tournament.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include "practice/base/player_text.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

constexpr std::size_t kLongestTeamName = 20;
constexpr int kHighestFee = 1'000'000;

/// -1 for a text that is no such number.
int LimitOf(std::string_view text, int lowest, int highest) {
  return NumberWithin(TrimSpaces(text), lowest, highest).value_or(-1);
}

}  // namespace

const Team* Tournament::TeamOf(const Account& account) const {
  const auto team = std::ranges::find_if(
      teams_, [&](const Team& known) { return std::ranges::count(known.members, &account) > 0; });
  return team == teams_.end() ? nullptr : &*team;
}

std::ptrdiff_t Tournament::CountPlayers() const {
  return std::transform_reduce(teams_.begin(), teams_.end(), std::ptrdiff_t{0}, std::plus(),
                               [](const Team& team) { return std::ssize(team.members); });
}

void Tournament::SendInfo(const Player& player, std::string_view remark) {
  const std::int64_t members = CountPlayers();
  std::vector<std::string_view> names;
  names.reserve(teams_.size());
  for (const Team& team : teams_) {
    names.emplace_back(team.name);
  }
  players_.Send(
      player,
      Message<ServerMessage::TournamentInfo>(terms_.entry_fee, members * terms_.entry_fee,
                                             names.size(), std::to_string(members).append(remark)) +
          BuildMessage(TagOf(ServerMessage::TeamNames), {Joined(names, {&kFieldSeparator, 1})}));
}

void Tournament::SendTeamList(const Player& player) {
  std::vector<std::string> lines;
  for (const Team& team : teams_) {
    lines.push_back("Team " + team.name + ", led by " + team.leader().name);
    for (const Account* member : team.members) {
      lines.push_back("    " + member->name);
    }
  }
  players_.Send(player, BuildMessage(TagOf(ServerMessage::TeamList),
                                     {Joined(lines, {&kRecordSeparator, 1})}));
}

void Tournament::Open(const Player& player, std::string_view entry_fee, std::string_view max_teams,
                      std::string_view max_players) {
  constexpr Terms kWidest;
  const Terms terms = {LimitOf(entry_fee, 0, kHighestFee), LimitOf(max_teams, 2, kWidest.max_teams),
                       LimitOf(max_players, 2, kWidest.max_players)};
  const bool are_terms = std::min({terms.entry_fee, terms.max_teams, terms.max_players}) >= 0;
  const bool have_room =
      std::ssize(teams_) <= terms.max_teams && CountPlayers() <= terms.max_players;
  const Refusal refusal = !player.account->IsAdministrator()    ? Refusal::AdministratorsManage
                          : !are_terms                          ? Refusal::BadTerms
                          : terms.max_players < terms.max_teams ? Refusal::FewerPlayersThanTeams
                          : is_open_                            ? Refusal::TournamentOpenAlready
                          : !have_room                          ? Refusal::TooManyTeamsAlready
                                                                : Refusal::None;
  if (players_.Refuse(player, refusal, max_teams, max_players)) {
    return;
  }
  is_open_ = true;
  terms_ = terms;
  players_.SayToAll(sentences::kTournamentOpens, terms.max_teams, terms.max_players,
                    terms.entry_fee);
  SendInfo(player);
}

void Tournament::SetGame(const Player& player) {
  const Refusal refusal = !player.account->IsAdministrator() ? Refusal::AdministratorsManage
                          : !is_open_                        ? Refusal::NoTournament
                          : teams_.size() < 2                ? Refusal::TooFewTeams
                          : is_game_set_                     ? Refusal::GameSetAlready
                                                             : Refusal::None;
  if (!players_.Refuse(player, refusal)) {
    is_game_set_ = true;
    players_.SayToAll(sentences::kTournamentGameSet);
    players_.Say(player, sentences::kSetForNextGame);
  }
}

void Tournament::End(const Player& player) {
  const Refusal refusal = !player.account->IsAdministrator() ? Refusal::AdministratorsManage
                          : !is_open_                        ? Refusal::NoTournament
                                                             : Refusal::None;
  if (players_.Refuse(player, refusal)) {
    return;
  }
  is_open_ = false;
  is_game_set_ = false;
  terms_ = {};
  players_.SayToAll(sentences::kTournamentOver);
  for (const Team& team : teams_) {
    SayToTeam(team, player, sentences::kTeamStays);
  }
  SendInfo(player);
}

void Tournament::Join(const Player& player, std::string_view team_name, std::string_view password) {
  const std::string_view name = TrimSpaces(team_name);
  const auto team = std::ranges::find_if(
      teams_, [&](const Team& known) { return EqualIgnoringCase(known.name, name); });
  const bool is_new = team == teams_.end();
  const bool is_full =
      CountPlayers() >= terms_.max_players || (is_new && std::ssize(teams_) >= terms_.max_teams);
  const bool is_name =
      !name.empty() && name.size() <= kLongestTeamName && name.find(':') == std::string_view::npos;
  const Team* current = TeamOf(*player.account);
  const std::int64_t score = player.account->figures.score;
  const Refusal refusal = score < terms_.entry_fee                ? Refusal::EntryFeeTooHigh
                          : is_full                               ? Refusal::NoRoomForTeam
                          : !is_name                              ? Refusal::BadTeamName
                          : !IsPassword(password)                 ? Refusal::BadTeamPassword
                          : current != nullptr                    ? Refusal::InTeamAlready
                          : !is_new && team->password != password ? Refusal::WrongTeamPassword
                                                                  : Refusal::None;
  if (players_.Refuse(player, refusal, terms_.entry_fee, score,
                      current == nullptr ? "" : current->name)) {
    SendInfo(player, refusal == Refusal::WrongTeamPassword ? "; wrong password" : "; join refused");
    return;
  }
  if (is_new) {
    teams_.push_back({std::string(name), std::string(password), {player.account}});
    players_.Say(player, sentences::kTeamMade);
  } else {
    team->members.push_back(player.account);
    SayToTeam(*team, player, sentences::kJoined);
  }
  SendBoth(player);
}

void Tournament::Disband(const Player& player) {
  const Team* team = TeamOf(*player.account);
  const Refusal refusal = team == nullptr                     ? Refusal::NotInTeam
                          : &team->leader() != player.account ? Refusal::OnlyLeaderDisbands
                                                              : Refusal::None;
  if (!players_.Refuse(player, refusal, team == nullptr ? "" : team->leader().name)) {
    SayToTeam(*team, player, sentences::kDisbanded);
    teams_.erase(teams_.begin() + (team - teams_.data()));
    SendBoth(player);
  }
}

void Tournament::Kick(const Player& player, std::string_view name) {
  const Account* account = accounts_.Find(TrimSpaces(name));
  const Team* team = TeamOf(*player.account);
  const bool is_member = team != nullptr && account != nullptr && TeamOf(*account) == team;
  const bool leaves = is_member && account == player.account;
  const Refusal refusal = !is_member                                     ? Refusal::NoTeamMember
                          : !leaves && &team->leader() != player.account ? Refusal::OnlyLeaderKicks
                                                                         : Refusal::None;
  if (players_.Refuse(player, refusal, team == nullptr ? "" : team->leader().name)) {
    return;
  }
  SayToTeam(*team, player,
            leaves ? std::string(sentences::kLeft) : Filled(sentences::kKicked, {account->name}));
  for (Team& other : teams_) {
    std::erase(other.members, account);
  }
  std::erase_if(teams_, [](const Team& other) { return other.members.empty(); });
  SendBoth(player);
}

void Tournament::Say(const Player& player, std::string_view words) {
  const Team* team = TeamOf(*player.account);
  if (!players_.Refuse(player, team == nullptr ? Refusal::NotInTeam : Refusal::None)) {
    SayToTeam(*team, player, words);
  }
}

void Tournament::SendBoth(const Player& player) {
  SendInfo(player);
  SendTeamList(player);
}

void Tournament::SayToTeam(const Team& team, const Player& speaker, std::string_view words) {
  const std::string line = ChatLine(MessageKind::Team, team.name + " - " + speaker.name(), words);
  for (const Account* member : team.members) {
    players_.Send(*member, line);
  }
}

}  // namespace korvanta::practice

#include "practice/lobby/online_list.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "practice/base/player_text.h"
#include "practice/wire/server_messages.h"

namespace korvanta::practice {
namespace {

using std::chrono::milliseconds;

/// From one online list to the next, at least.
constexpr milliseconds kOnlineListPause{100};
/// More for each thousand entries that go out.
constexpr milliseconds kPausePerThousandEntries{1};

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

void OnlineList::SendIfDue(milliseconds now) {
  if (now < due_ || players_.people() == 0) {
    return;
  }
  const auto entries = players_.all().size() * players_.people();
  due_ = now + kOnlineListPause + kPausePerThousandEntries * entries / 1000;
  if (std::string message = Message(); message != sent_) {
    players_.SendToAll(message);
    sent_ = std::move(message);
  }
}

std::string OnlineList::Message() {
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

#include "practice/simulation/simulation.h"

#include <algorithm>
#include <utility>

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// People always find a seat; simulated players leave some free.
constexpr int kMostSimulatedSeats = 6;
/// Of the simulated players in percent; the rest may be offline.
constexpr int kLeastOnline = 70;
/// How often, in percent, a hit is complained about at each move.
constexpr int kComplains = 8;
constexpr std::size_t kTeamSize = 2;
constexpr std::size_t kMostSimulatedTeams = 3;
/// Nobody can type a tab, so that the team stays among simulated players.
constexpr auto kTeamPassword = "\tsimulated";

}  // namespace

Simulation::Simulation(Accounts& accounts, Lobby& lobby, Arena& arena, Tournament& tournament,
                       std::uint64_t seed, int count)
    : lobby_(lobby), arena_(arena), tournament_(tournament), dice_(seed) {
  const std::size_t first = dice_.Below(100);
  for (std::size_t number = 0; number < static_cast<std::size_t>(count); ++number) {
    characters_.push_back(
        {&accounts.AddSimulated(SimulatedName(number)), &TemperamentOf(first + number)});
  }
  for (Character& character : characters_) {
    character.player = &lobby_.Enter(kNoConnection, *character.account);
    IsDue(character.next_move, 1s, 4s);
  }
}

void Simulation::Step(milliseconds now) {
  now_ = now;
  if (characters_.empty()) {
    return;
  }
  for (const Conversation::Line& line : conversation_.Step(now)) {
    lobby_.Handle(*line.speaker->player, {ClientMessage::ChatLine, {line.typed}});
  }
  if (IsDue(next_arrival_, 20s, 60s)) {
    ComeOrGo();
  }
  if (IsDue(next_team_, 3s, 8s)) {
    FormTeam();
  }
  for (Character& character : characters_) {
    if (character.player != nullptr && IsDue(character.next_move, 3s, 8s)) {
      Act(character);
    }
  }
}

/// One who does not play logs out, or one who is offline comes back.
void Simulation::ComeOrGo() {
  Character& character = characters_[dice_.Below(characters_.size())];
  if (character.player == nullptr) {
    character.player = &lobby_.Enter(kNoConnection, *character.account);
    return;
  }
  const auto online = std::count_if(characters_.begin(), characters_.end(),
                                    [](const Character& other) { return other.player != nullptr; });
  const auto least = std::ssize(characters_) * kLeastOnline / 100;
  if (online > std::max<std::ptrdiff_t>(least, 2) && !character.player->is_ready &&
      !IsInTeam(character)) {
    lobby_.Leave(*std::exchange(character.player, nullptr));
  }
}

/// While a tournament is open, simulated players fill a few teams.
void Simulation::FormTeam() {
  const Character* character = tournament_.IsOpen() ? AnyOnline(characters_, dice_) : nullptr;
  if (character == nullptr || IsInTeam(*character)) {
    return;
  }
  for (std::size_t number = 0; number < kMostSimulatedTeams; ++number) {
    const std::string name = SimulatedTeamName(number);
    const Team* team = tournament_.Find(name);
    if (team == nullptr || (team->members.size() < kTeamSize && team->password == kTeamPassword)) {
      lobby_.Handle(*character->player, {ClientMessage::JoinTeam, {name, kTeamPassword}});
      return;
    }
  }
}

void Simulation::Act(Character& character) {
  Player& player = *character.player;
  if (const Contender* self = arena_.SeatOf(player)) {
    if (self->was_set_back && dice_.Chance(kComplains)) {
      conversation_.Say(character, Occasion::SetBack);
    }
    if (const auto move = NextMove(*arena_.game(), *self, *character.temperament, dice_)) {
      lobby_.Handle(player, *move);
    }
    return;
  }
  if (arena_.phase() != Arena::Phase::Gathering || player.is_ready) {
    return;
  }
  const auto ready = std::count_if(
      characters_.begin(), characters_.end(),
      [](const Character& other) { return other.player != nullptr && other.player->is_ready; });
  if (ready < kMostSimulatedSeats || (tournament_.IsGameSet() && IsInTeam(character))) {
    lobby_.Handle(player, {ClientMessage::EnterGame, {}});
  }
}

bool Simulation::IsInTeam(const Character& character) const {
  return tournament_.TeamOf(character.account->name) != nullptr;
}

bool Simulation::IsDue(milliseconds& next, milliseconds least, milliseconds most) {
  if (now_ < next) {
    return false;
  }
  next = now_ + dice_.Between(least, most);
  return true;
}

}  // namespace korvanta::practice

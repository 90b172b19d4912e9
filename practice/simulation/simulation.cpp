#include "practice/simulation/simulation.h"

#include <algorithm>
#include <utility>

#include "practice/base/player_text.h"
#include "practice/simulation/simulated_play.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// People always find a seat; simulated players leave some free.
constexpr int kMostSimulatedSeats = 6;
/// Of the simulated players in percent; the rest may be offline.
constexpr int kLeastOnline = 70;
/// Lines that nobody says again for a while.
constexpr std::size_t kRemembered = 12;
constexpr std::size_t kTeamSize = 2;
constexpr std::size_t kMostSimulatedTeams = 3;
/// Nobody can type a tab, so that the team stays among simulated players.
constexpr auto kTeamPassword = "\tsimulated";

}  // namespace

Simulation::Simulation(World& world, Lobby& lobby, std::uint64_t seed, int count)
    : world_(world), lobby_(lobby), dice_(seed) {
  world_.on_chat = [this](const Player& speaker, const Player* listener, auto words) {
    Hear(speaker, listener, words);
  };
  const std::size_t first = dice_.Below(100);
  for (std::size_t number = 0; number < static_cast<std::size_t>(count); ++number) {
    characters_.push_back({&world_.accounts.AddSimulated(SimulatedName(number)), first + number});
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
  if (IsDue(next_talk_, 8s, 20s)) {
    MakeSmallTalk();
  }
  // No line leads to another: simulated players listen to people alone.
  std::erase_if(waiting_, [this](const Line& line) {
    if (line.due <= now_ && line.speaker->player != nullptr) {
      lobby_.Handle(*line.speaker->player, {ClientMessage::ChatLine, {line.typed}});
    }
    return line.due <= now_;
  });
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
  const auto online = std::ranges::count_if(
      characters_, [](const Character& other) { return other.player != nullptr; });
  const auto least = std::ssize(characters_) * kLeastOnline / 100;
  if (online > std::max<std::ptrdiff_t>(least, 2) && !character.player->is_ready &&
      world_.tournament.TeamOf(*character.account) == nullptr) {
    lobby_.Leave(*std::exchange(character.player, nullptr));
  }
}

/// While a tournament is open, simulated players fill a few teams.
void Simulation::FormTeam() {
  if (!world_.tournament.IsOpen()) {
    return;
  }
  const std::vector<Team>& teams = world_.tournament.teams();
  Player& player = *AnyOnline().player;
  for (std::size_t number = 0; number < kMostSimulatedTeams; ++number) {
    const std::string name = SimulatedTeamName(number);
    const auto team = std::ranges::find(teams, name, &Team::name);
    if (team == teams.end() || team->members.size() < kTeamSize) {  // members of a team are refused
      lobby_.Handle(player, {ClientMessage::JoinTeam, {name, kTeamPassword}});
    }
  }
}

void Simulation::Act(Character& character) {
  Player& player = *character.player;
  if (const Contender* self = world_.arena.SeatOf(*player.account)) {
    if (const auto move = NextMove(*world_.arena.game(), *self, character.number, dice_)) {
      lobby_.Handle(player, *move);
    }
    return;
  }
  if (world_.arena.phase() != Arena::Phase::Gathering || player.is_ready) {
    return;
  }
  const auto ready = std::ranges::count_if(characters_, [](const Character& other) {
    return other.player != nullptr && other.player->is_ready;
  });
  if (ready < kMostSimulatedSeats ||
      (world_.tournament.IsGameSet() && world_.tournament.TeamOf(*character.account) != nullptr)) {
    lobby_.Handle(player, {ClientMessage::EnterGame, {}});
  }
}

/// About whoever is ahead in the game, or about anyone.
void Simulation::MakeSmallTalk() {
  Character& speaker = AnyOnline();
  const Game* game = world_.arena.game();
  const bool plays = world_.arena.SeatOf(*speaker.account) != nullptr;
  const Occasion occasion = world_.arena.phase() == Arena::Phase::Resting ? Occasion::Ending
                            : !plays                                      ? Occasion::Lobby
                            : !game->IsOpen()                             ? Occasion::Closing
                                                                          : Occasion::Playing;
  const Character& other = AnyOnline();
  std::string_view name = &other == &speaker ? std::string_view() : other.account->name;
  if (game != nullptr) {
    const auto progress = [&](const Contender& contender) {
      return contender.account == speaker.account ? -1 : contender.Progress();
    };
    const auto leader = std::ranges::max_element(game->contenders(), {}, progress);
    name = progress(*leader) < 0 ? name : leader->name();
  }
  Say(speaker, occasion, name);
}

void Simulation::Hear(const Player& speaker, const Player* listener, std::string_view words) {
  if (speaker.IsSimulated() || characters_.empty()) {
    return;
  }
  const auto meant = std::ranges::find_if(characters_, [&](const Character& character) {
    return character.player != nullptr &&
           (listener == nullptr
                ? NameKey(words).find(NameKey(character.account->name)) != std::string::npos
                : listener == character.player);
  });
  const Occasion occasion = OccasionOf(words);
  Character* character = meant != characters_.end() ? &*meant : nullptr;
  if (character == nullptr && listener == nullptr && waiting_.empty() &&
      occasion != Occasion::Mention) {
    character = &AnyOnline();
  }
  const bool is_busy = std::ranges::count(waiting_, character, &Line::speaker) > 0;
  const std::string command = listener == nullptr ? "/c " : "/tell " + speaker.name() + " ";
  if (character != nullptr && !is_busy && Say(*character, occasion, speaker.name(), command)) {
    waiting_.back().due += dice_.Between(1500ms, 4s);
  }
}

bool Simulation::Say(Character& speaker, Occasion occasion, std::string_view name,
                     const std::string& command) {
  std::vector<std::string_view> fresh;
  for (std::string_view line : LinesFor(occasion)) {
    const bool was_said = std::ranges::count(said_lately_, line) > 0;
    if (!was_said && (!name.empty() || line.find('%') == std::string_view::npos)) {
      fresh.push_back(line);
    }
  }
  if (fresh.empty()) {
    return false;
  }
  said_lately_.push_back(dice_.Pick(fresh));
  std::string line(said_lately_.back());
  if (const std::size_t place = line.find('%'); place != std::string::npos) {
    line.replace(place, 1, name);
  }
  if (said_lately_.size() > kRemembered) {
    said_lately_.pop_front();
  }
  waiting_.push_back({now_, &speaker, command + line});
  return true;
}

Simulation::Character& Simulation::AnyOnline() {
  std::vector<Character*> online;
  for (Character& character : characters_) {
    if (character.player != nullptr) {
      online.push_back(&character);
    }
  }
  return *dice_.Pick(online);
}

bool Simulation::IsDue(milliseconds& next, milliseconds least, milliseconds most) {
  if (now_ < next) {
    return false;
  }
  next = now_ + dice_.Between(least, most);
  return true;
}

}  // namespace korvanta::practice

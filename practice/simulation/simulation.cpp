#include "practice/simulation/simulation.h"

#include <algorithm>
#include <array>
#include <utility>

#include "practice/simulation/simulated_talk.h"
#include "practice/wire/player_text.h"

namespace korvanta::practice {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

constexpr auto kTemperaments = std::to_array<Temperament>({
    {"builder", Topic::Industry, Topic::Population, 1, 0, 0, 10, 0},
    {"raider", Topic::Industry, Topic::Military, 0, 3, 25, 5, 40},
    {"guardian", Topic::Industry, Topic::Defense, 3, 0, 0, 10, 0},
    {"diplomat", Topic::Population, Topic::Industry, 1, 1, 6, 40, 2},
    {"schemer", Topic::Population, Topic::Military, 1, 1, 12, 25, 60},
    {"racer", Topic::Industry, Topic::Population, 0, 1, 8, 5, 20},
});

/// People always find a seat; simulated players leave some free.
constexpr int kMostSimulatedSeats = 6;
/// Of the simulated players in percent; the rest may be offline.
constexpr int kLeastOnline = 70;
/// How often, in percent, someone who is about to win is attacked by whoever can at each move.
constexpr int kAlarm = 30;
constexpr int kComplains = 8;
/// Lines that nobody says again for a while.
constexpr std::size_t kRemembered = 20;
constexpr int kOpeningTicks = 5;

std::int64_t Progress(const Contender& contender) {
  std::int64_t progress = 0;
  for (int level : contender.levels) {
    progress += level;
  }
  return progress;
}

}  // namespace

Simulation::Simulation(Accounts& accounts, Players& players, Lobby& lobby, Arena& arena,
                       Tournament& tournament, std::uint64_t seed, int count)
    : accounts_(accounts),
      players_(players),
      lobby_(lobby),
      arena_(arena),
      tournament_(tournament),
      dice_(seed) {
  const std::size_t first = Below(kTemperaments.size());
  for (std::size_t number = 0; number < static_cast<std::size_t>(count); ++number) {
    if (Account* account = accounts_.AddSimulated(SimulatedName(number))) {
      characters_.push_back({account, &kTemperaments.at((first + number) % kTemperaments.size())});
    }
  }
  for (Character& character : characters_) {
    character.player = &lobby_.Enter(kNoConnection, *character.account);
    character.next_move = Soon(1s, 4s);
  }
}

void Simulation::Step(milliseconds now) {
  now_ = now;
  if (characters_.empty()) {
    return;
  }
  SendReplies();
  const auto is_due = [&](milliseconds& next, milliseconds least, milliseconds most) {
    const bool due = now_ >= next;
    if (due) {
      next = Soon(least, most);
    }
    return due;
  };
  if (is_due(next_coming_, 20s, 60s)) {
    ComeOrGo();
  }
  if (is_due(next_talk_, 8s, 20s)) {
    Talk();
  }
  if (is_due(next_team_, 3s, 8s)) {
    FormTeam();
  }
  for (Character& character : characters_) {
    if (character.player != nullptr && now_ >= character.next_move) {
      character.next_move = Soon(3s, 8s);
      Move(character);
    }
  }
}

void Simulation::Hear(const Player& speaker, const Player* listener, std::string_view words) {
  if (speaker.IsSimulated()) {
    return;
  }
  const auto answer = [&](const Character& character, Occasion occasion, const std::string& start) {
    const bool is_answering =
        std::any_of(replies_.begin(), replies_.end(),
                    [&](const Reply& reply) { return reply.speaker == character.account; });
    if (std::string line = is_answering ? "" : Line(occasion, speaker.name()); !line.empty()) {
      replies_.push_back({Soon(1500ms, 4s), character.account, start + line});
    }
  };
  const auto occasion = [&](Occasion usual) {
    return IsGreeting(words) ? Occasion::Greeting : IsQuestion(words) ? Occasion::Question : usual;
  };
  for (const Character& character : characters_) {
    const bool is_named =
        NameKey(words).find(NameKey(character.account->name)) != std::string::npos;
    if (character.player == nullptr || (listener == nullptr && !is_named)) {
      continue;
    }
    if (listener == nullptr) {
      answer(character, occasion(Occasion::Mention), "/c ");
      return;
    }
    if (listener == character.player) {
      answer(character, occasion(Occasion::Mention), "/tell " + speaker.name() + " ");
      return;
    }
  }
  const bool deserves_answer =
      listener == nullptr && replies_.empty() && (IsGreeting(words) || IsQuestion(words));
  if (const Character* character = deserves_answer ? AnyOnline() : nullptr) {
    answer(*character, occasion(Occasion::Mention), "/c ");
  }
}

/// One who does not play logs out, or one who is away comes back.
void Simulation::ComeOrGo() {
  Character& character = characters_[Below(characters_.size())];
  if (character.player == nullptr) {
    character.player = &lobby_.Enter(kNoConnection, *character.account);
    character.next_move = Soon(2s, 6s);
    return;
  }
  const auto online = std::count_if(characters_.begin(), characters_.end(),
                                    [](const Character& other) { return other.player != nullptr; });
  const auto least = static_cast<std::ptrdiff_t>(characters_.size()) * kLeastOnline / 100;
  if (online > std::max<std::ptrdiff_t>(least, 2) &&
      arena_.ContenderOf(*character.player) == nullptr && !character.player->is_ready &&
      tournament_.teams.TeamOf(character.account->name) == nullptr) {
    lobby_.Leave(*std::exchange(character.player, nullptr));
  }
}

void Simulation::Talk() {
  Character* speaker = AnyOnline();
  if (speaker == nullptr) {
    return;
  }
  const Game* game = arena_.game();
  const bool plays = arena_.ContenderOf(*speaker->player) != nullptr;
  const Occasion occasion = arena_.phase() == Arena::Phase::Resting ? Occasion::Ending
                            : !plays                                ? Occasion::Lobby
                            : !game->IsOpen()                       ? Occasion::Closing
                            : game->ticks() < kOpeningTicks         ? Occasion::Opening
                                                                    : Occasion::Playing;
  // Of the one who is ahead in the game, or of anyone.
  std::string_view name;
  std::int64_t most = -1;
  if (game != nullptr) {
    for (const Contender& other : game->contenders()) {
      if (other.account != speaker->account && Progress(other) > most) {
        most = Progress(other);
        name = other.name();
      }
    }
  }
  if (const Character* other = AnyOnline(); name.empty() && other != speaker) {
    name = other->account->name;
  }
  if (const std::string line = Line(occasion, name); !line.empty()) {
    Type(*speaker->player, "/c " + line);
  }
}

std::string Simulation::Line(Occasion occasion, std::string_view name) {
  std::vector<std::string_view> fresh;
  for (std::string_view line : LinesFor(occasion)) {
    if (std::find(said_.begin(), said_.end(), line) == said_.end()) {
      fresh.push_back(line);
    }
  }
  if (fresh.empty()) {
    return {};
  }
  const std::string_view chosen = fresh[Below(fresh.size())];
  std::string line(chosen);
  if (const std::size_t place = line.find('%'); place != std::string::npos) {
    if (name.empty()) {
      return {};
    }
    line.replace(place, 1, name);
  }
  said_.push_back(chosen);
  if (said_.size() > kRemembered) {
    said_.pop_front();
  }
  return line;
}

void Simulation::SendReplies() {
  const auto later = std::stable_partition(replies_.begin(), replies_.end(),
                                           [&](const Reply& reply) { return reply.due <= now_; });
  const std::vector<Reply> due(replies_.begin(), later);
  replies_.erase(replies_.begin(), later);
  for (const Reply& reply : due) {
    if (Player* player = players_.Find(reply.speaker->name)) {
      Type(*player, reply.line);
    }
  }
}

/// While a tournament is open, simulated players fill teams of two.
void Simulation::FormTeam() {
  Character* character = tournament_.is_open ? AnyOnline() : nullptr;
  if (character == nullptr || tournament_.teams.TeamOf(character->account->name) != nullptr) {
    return;
  }
  constexpr std::size_t kTeamSize = 2;
  constexpr std::size_t kMostSimulatedTeams = 3;
  for (std::size_t number = 0; number < kMostSimulatedTeams; ++number) {
    const std::string name = SimulatedTeamName(number);
    const Team* team = tournament_.teams.Find(name);
    if (team == nullptr || (team->members.size() < kTeamSize && team->password.starts_with('\t'))) {
      // Nobody can type a tab, so that the team stays among simulated players.
      lobby_.Handle(*character->player, {ClientMessage::JoinTeam, {name, "\tsimulated"}});
      return;
    }
  }
}

void Simulation::Move(Character& self) {
  if (const Contender* seat = arena_.ContenderOf(*self.player)) {
    Play(self, *seat);
    return;
  }
  if (arena_.phase() != Arena::Phase::Gathering || self.player->is_ready) {
    return;
  }
  const bool is_wanted =
      tournament_.is_game_set && tournament_.teams.TeamOf(self.account->name) != nullptr;
  const auto ready = std::count_if(
      characters_.begin(), characters_.end(),
      [](const Character& other) { return other.player != nullptr && other.player->is_ready; });
  if (is_wanted || ready < kMostSimulatedSeats) {
    lobby_.Handle(*self.player, {ClientMessage::EnterGame, {}});
  }
}

void Simulation::Play(Character& self, const Contender& seat) {
  if (seat.was_set_back && Chance(kComplains)) {
    if (const std::string line = Line(Occasion::SetBack, {}); !line.empty()) {
      Type(*self.player, "/c " + line);
    }
  }
  std::vector<const Contender*> dangers;
  for (const Contender& other : arena_.game()->contenders()) {
    if (other.IsNearWinning() && &other != &seat &&
        (!seat.IsOnOneSideWith(other) ||
         (seat.ally == &other && Chance(self.temperament->betrays)))) {
      dangers.push_back(&other);
    }
  }
  const Contender* danger = dangers.empty() ? nullptr : dangers[Below(dangers.size())];
  if (!Attack(self, seat, danger) && !MakeFriends(self, seat)) {
    Research(self, seat);
  }
}

/// Whether the move was an attack.
bool Simulation::Attack(Character& self, const Contender& seat, const Contender* danger) {
  if (seat.has_attacked || seat.LevelOf(Topic::Military) == 0 || seat.points < Game::kAttackCost) {
    return false;
  }
  const Contender* target = danger;
  if (danger == nullptr || !Chance(kAlarm)) {
    if (!Chance(self.temperament->attacks) || seat.IsNearWinning()) {
      return false;
    }
    std::vector<const Contender*> targets;
    for (const Contender& other : arena_.game()->contenders()) {
      if (&other != &seat && !seat.IsOnOneSideWith(other) && Progress(other) >= Progress(seat)) {
        targets.push_back(&other);
      }
    }
    if (targets.empty()) {
      return false;
    }
    target = targets[Below(targets.size())];
  }
  if (target->was_set_back || Progress(*target) == 0) {
    return false;
  }
  lobby_.Handle(*self.player, {ClientMessage::AttackPlayer, {target->name()}});
  return true;
}

/// Whether the move was an offer of an alliance, or a yes to one.
bool Simulation::MakeFriends(Character& self, const Contender& seat) {
  if (seat.ally != nullptr || !seat.team.empty()) {
    return false;
  }
  const auto& all = arena_.game()->contenders();
  const Contender* friendly = nullptr;
  for (const Contender& other : all) {
    if (other.proposed_to == &seat && other.ally == nullptr && Chance(self.temperament->allies)) {
      friendly = &other;
    }
  }
  if (friendly == nullptr && seat.proposed_to == nullptr && Chance(self.temperament->allies / 5)) {
    const Contender& other =
        *std::next(all.begin(), static_cast<std::ptrdiff_t>(Below(all.size())));
    friendly = &other != &seat && other.ally == nullptr ? &other : nullptr;
  }
  if (friendly == nullptr) {
    return false;
  }
  lobby_.Handle(*self.player, {ClientMessage::FormAlliance, {friendly->name()}});
  return true;
}

/// The next level on the way to the Golden Knowledge, when there are points for it.
void Simulation::Research(Character& self, const Contender& seat) {
  if (seat.IsNearWinning()) {
    DoResearch(self, seat, Topic::GoldenKnowledge);
    return;
  }
  const Temperament& temperament = *self.temperament;
  const auto wants = [&](Topic topic, int level) { return seat.LevelOf(topic) < level; };
  DoResearch(self, seat,
             wants(temperament.first_topic, 2)              ? temperament.first_topic
             : wants(Topic::Military, temperament.military) ? Topic::Military
             : wants(Topic::Defense, temperament.defense)   ? Topic::Defense
             : wants(temperament.first_topic, kTopLevel)    ? temperament.first_topic
                                                            : temperament.second_topic);
}

void Simulation::DoResearch(Character& self, const Contender& seat, Topic topic) {
  if (seat.points < Game::Cost(seat, topic)) {
    return;
  }
  const int level = topic == Topic::GoldenKnowledge ? kGoldenLevel : seat.LevelOf(topic) + 1;
  lobby_.Handle(*self.player, {ClientMessage::ResearchTopic,
                               {std::to_string(static_cast<int>(topic)), std::to_string(level)}});
}

void Simulation::Type(Player& player, const std::string& line) {
  lobby_.Handle(player, {ClientMessage::ChatLine, {line}});
}

/// Null when none is online.
Simulation::Character* Simulation::AnyOnline() {
  if (characters_.empty()) {
    return nullptr;
  }
  const std::size_t first = Below(characters_.size());
  for (std::size_t step = 0; step < characters_.size(); ++step) {
    Character& character = characters_[(first + step) % characters_.size()];
    if (character.player != nullptr) {
      return &character;
    }
  }
  return nullptr;
}

std::size_t Simulation::Below(std::size_t limit) { return dice_() % limit; }

bool Simulation::Chance(int percent) { return Below(100) < static_cast<std::size_t>(percent); }

/// A time from now.
milliseconds Simulation::Soon(milliseconds least, milliseconds most) {
  return now_ + least + milliseconds(Below(static_cast<std::size_t>((most - least).count()) + 1));
}

}  // namespace korvanta::practice

#include "practice/simulation/simulated_play.h"

#include <array>
#include <string>
#include <vector>

namespace korvanta::practice {
namespace {

/// Chances are in percent at each of its moves.
struct Temperament {
  TopicCode first_topic;  ///< the two that it brings to level 4
  TopicCode second_topic;
  int defense;   ///< level of Defense that it wants before the second topic
  int military;  ///< likewise
  int attacks;   ///< chance of an attack on someone who is not about to win
  int allies;    ///< chance of offering an alliance, and of agreeing to one
  int betrays;   ///< chance of attacking an ally that is about to win
};

/// They take turns.
constexpr auto kTemperaments = std::to_array<Temperament>({
    {TopicCode::Industry, TopicCode::Population, 1, 0, 0, 10, 0},   // builder
    {TopicCode::Industry, TopicCode::Military, 0, 3, 12, 5, 40},    // raider
    {TopicCode::Industry, TopicCode::Defense, 3, 0, 0, 10, 0},      // guardian
    {TopicCode::Population, TopicCode::Industry, 1, 1, 6, 20, 2},   // diplomat
    {TopicCode::Population, TopicCode::Military, 1, 1, 6, 25, 60},  // schemer
    {TopicCode::Industry, TopicCode::Population, 0, 1, 8, 5, 20},   // racer
});

/// How often, in percent, someone who is about to win is attacked by whoever can at each move.
constexpr int kAlarm = 45;
/// How often, in percent, a move is let pass: newcomers are to have a chance.
constexpr int kHesitates = 16;

using Move = std::optional<ClientRequest>;

/// An attack on whoever is about to win, or for the sake of it on someone no worse off.
Move ChooseAttack(const Game& game, const Contender& self, const Temperament& temperament,
                  Dice& dice) {
  std::vector<const Contender*> dangers;
  std::vector<const Contender*> rivals;
  for (const Contender& other : game.contenders()) {
    if (&other == &self) {
      continue;
    }
    const bool is_friend = self.IsOnSideOf(other);
    if (other.IsNearWinning() &&
        (!is_friend || (self.ally == &other && dice.Chance(temperament.betrays)))) {
      dangers.push_back(&other);
    }
    if (!is_friend && other.Progress() >= self.Progress()) {
      rivals.push_back(&other);
    }
  }
  if (self.has_attacked || self.LevelOf(TopicCode::Military) == 0 ||
      self.points < Game::kAttackCost) {
    return std::nullopt;
  }
  const Contender* target = nullptr;
  if (!dangers.empty() && dice.Chance(kAlarm)) {
    target = dice.Pick(dangers);
  } else if (!self.IsNearWinning() && !rivals.empty() && dice.Chance(temperament.attacks)) {
    target = dice.Pick(rivals);
  }
  if (target == nullptr || target->was_set_back || target->Progress() == 0) {
    return std::nullopt;
  }
  return ClientRequest{ClientMessage::AttackPlayer, {target->name()}};
}

/// An offer of an alliance, or agreement to one.
Move ChooseAlliance(const Game& game, const Contender& self, const Temperament& temperament,
                    Dice& dice) {
  if (self.ally != nullptr || !self.team.empty()) {
    return std::nullopt;
  }
  const Contender* partner = nullptr;
  for (const Contender& other : game.contenders()) {
    if (other.proposed_to == &self && other.ally == nullptr && dice.Chance(temperament.allies)) {
      partner = &other;
    }
  }
  if (partner == nullptr && self.proposed_to == nullptr && dice.Chance(temperament.allies / 5)) {
    const Contender& other = dice.Pick(game.contenders());
    partner = &other != &self && other.ally == nullptr ? &other : nullptr;
  }
  return partner == nullptr ? Move()
                            : ClientRequest{ClientMessage::FormAlliance, {partner->name()}};
}

/// The next level on the way to the Golden Knowledge, when there are points for it.
Move ChooseResearch(const Contender& self, const Temperament& temperament) {
  const auto wants = [&](TopicCode topic, int level) { return self.LevelOf(topic) < level; };
  const TopicCode topic = self.IsNearWinning()                ? TopicCode::GoldenKnowledge
                          : wants(temperament.first_topic, 2) ? temperament.first_topic
                          : wants(TopicCode::Military, temperament.military) ? TopicCode::Military
                          : wants(TopicCode::Defense, temperament.defense)   ? TopicCode::Defense
                          : wants(temperament.first_topic, kTopLevel) ? temperament.first_topic
                                                                      : temperament.second_topic;
  if (self.points < Game::Cost(self, topic)) {
    return std::nullopt;
  }
  const int level = topic == TopicCode::GoldenKnowledge ? kGoldenLevel : self.LevelOf(topic) + 1;
  return ClientRequest{ClientMessage::ResearchTopic,
                       {std::to_string(static_cast<int>(topic)), std::to_string(level)}};
}

}  // namespace

std::optional<ClientRequest> NextMove(const Game& game, const Contender& self, std::size_t number,
                                      Dice& dice) {
  const Temperament& temperament = kTemperaments.at(number % kTemperaments.size());
  if (dice.Chance(kHesitates)) {
    return std::nullopt;
  }
  Move move = ChooseAttack(game, self, temperament, dice);
  if (!move) {
    move = ChooseAlliance(game, self, temperament, dice);
  }
  return move ? move : ChooseResearch(self, temperament);
}

}  // namespace korvanta::practice

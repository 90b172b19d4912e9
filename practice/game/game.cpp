#include "practice/game/game.h"

#include <algorithm>
#include <numeric>

#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

/// What each level costs before discounts, from level 1.
constexpr std::array<int, kTopLevel> kLevelCosts = {4, 8, 14, 22};
constexpr int kFirstPoints = 6;
constexpr int kBasicIncome = 3;
/// Every so many ticks all incomes rise by one, so that no game lasts for ever.
constexpr int kTicksPerRise = 12;
/// Of what the others own on average, in percent, for whoever enters late.
constexpr int kLateShare = 80;
constexpr int kDiscountPerPopulation = 10;  // percent

constexpr int kBlockBase = 20;  // percent, like all below
constexpr int kBlockPerDefense = 15;
constexpr int kBlockPerMilitary = 10;
constexpr int kLeastBlock = 5;
constexpr int kMostBlock = 85;

// Points of Total Score.
constexpr int kScorePerLevel = 10;
constexpr int kScorePerHit = 15;
constexpr int kScorePerBlock = 10;

struct TopicText {
  std::string_view name;
  std::string_view purpose;
};

/// By topic code, from 1.
constexpr std::array<TopicText, 5> kTopicTexts = {{
    {"Military", "Level 1 lets you attack, and each level makes your attacks harder to block."},
    {"Industry", "Each level brings one more research point with every tick."},
    {"Population", "Each level makes all research a tenth cheaper."},
    {"Defense", "Each level blocks more of the attacks on you."},
    {"Golden Knowledge", "It wins the game, and needs two topics at level 4."},
}};

const TopicText& TextOf(Topic topic) { return kTopicTexts.at(static_cast<std::size_t>(topic) - 1); }

}  // namespace

std::string_view TopicName(Topic topic) { return TextOf(topic).name; }

std::string_view TopicPurpose(Topic topic) { return TextOf(topic).purpose; }

std::optional<Topic> ReadTopic(std::string_view code) {
  const auto number = NumberWithin(code, 1, static_cast<int>(Topic::GoldenKnowledge));
  return number ? std::optional(static_cast<Topic>(*number)) : std::nullopt;
}

bool Contender::IsNearWinning() const {
  return std::count(levels.begin(), levels.end(), kTopLevel) >= 2;
}

bool Contender::IsTeammateOf(const Contender& other) const {
  return !team.empty() && team == other.team;
}

bool Contender::IsOnSideOf(const Contender& other) const {
  return ally == &other || IsTeammateOf(other);
}

Contender& Game::Enter(Account& account, std::string_view team) {
  int points = kFirstPoints;
  if (ticks_ > 0 && !contenders_.empty()) {
    const int worth = std::transform_reduce(contenders_.begin(), contenders_.end(), 0, std::plus{},
                                            [](const Contender& other) { return Worth(other); });
    points = std::max(points, worth / static_cast<int>(contenders_.size()) * kLateShare / 100);
  }
  ++account.figures.games_played;
  return contenders_.emplace_back(Contender{&account, std::string(team), points});
}

void Game::Leave(const Contender& contender) {
  for (Contender& other : contenders_) {
    if (other.ally == &contender) {
      other.ally = nullptr;
    }
    if (other.proposed_to == &contender) {
      other.proposed_to = nullptr;
    }
  }
  contenders_.remove_if([&](const Contender& other) { return &other == &contender; });
}

Contender& Game::Return(const Contender& contender) {
  Contender& back = contenders_.emplace_back(contender);
  back.ally = nullptr;
  back.proposed_to = nullptr;
  return back;
}

Contender* Game::Find(const Account& account) {
  const auto found =
      std::find_if(contenders_.begin(), contenders_.end(),
                   [&](const Contender& contender) { return contender.account == &account; });
  return found == contenders_.end() ? nullptr : &*found;
}

const Contender* Game::Find(const Account& account) const {
  return const_cast<Game*>(this)->Find(account);
}

bool Game::IsOpen() const {
  return std::none_of(contenders_.begin(), contenders_.end(),
                      [](const Contender& contender) { return contender.IsNearWinning(); });
}

void Game::Tick() {
  for (Contender& contender : contenders_) {
    contender.points += Income(contender);
    contender.has_attacked = false;
    contender.was_set_back = false;
  }
  ++ticks_;
}

int Game::Income(const Contender& contender) const {
  return kBasicIncome + contender.LevelOf(Topic::Industry) + ticks_ / kTicksPerRise;
}

int Game::Cost(const Contender& contender, Topic topic) {
  const int full = topic == Topic::GoldenKnowledge
                       ? kGoldenCost
                       : kLevelCosts.at(static_cast<std::size_t>(
                             std::min(contender.LevelOf(topic), kTopLevel - 1)));
  const int percent = 100 - kDiscountPerPopulation * contender.LevelOf(Topic::Population);
  return (full * percent + 99) / 100;
}

int Game::BlockChance(const Contender& attacker, const Contender& target) {
  return std::clamp(kBlockBase + kBlockPerDefense * target.LevelOf(Topic::Defense) -
                        kBlockPerMilitary * attacker.LevelOf(Topic::Military),
                    kLeastBlock, kMostBlock);
}

Refusal Game::Research(Contender& contender, Topic topic, int level) {
  const bool wins = topic == Topic::GoldenKnowledge;
  if (wins && !contender.IsNearWinning()) {
    return Refusal::GoldenKnowledgeNeedsTopics;
  }
  if (!wins && level <= contender.LevelOf(topic)) {
    return Refusal::LevelReachedAlready;
  }
  if (!wins && level != contender.LevelOf(topic) + 1) {
    return Refusal::LevelOutOfOrder;
  }
  const int cost = Cost(contender, topic);
  if (contender.points < cost) {
    return Refusal::ResearchTooDear;
  }
  contender.points -= cost;
  ++contender.account->figures.research;
  contender.account->figures.score += kScorePerLevel * level;
  if (!wins) {
    contender.LevelOf(topic) = level;
  }
  return Refusal::None;
}

Game::AttackResult Game::Attack(Contender& attacker, Contender& target) {
  std::vector<Topic> researched;
  std::copy_if(kTopicsWithLevels.begin(), kTopicsWithLevels.end(), std::back_inserter(researched),
               [&](Topic topic) { return target.LevelOf(topic) > 0; });
  const Refusal refusal = attacker.IsTeammateOf(target)            ? Refusal::Teammate
                          : attacker.LevelOf(Topic::Military) == 0 ? Refusal::AttackNeedsMilitary
                          : attacker.has_attacked                  ? Refusal::AttackedAlready
                          : target.was_set_back                    ? Refusal::SetBackAlready
                          : researched.empty()                     ? Refusal::NothingToDestroy
                          : attacker.points < kAttackCost          ? Refusal::AttackTooDear
                                                                   : Refusal::None;
  if (refusal != Refusal::None) {
    return {refusal};
  }
  attacker.points -= kAttackCost;
  attacker.has_attacked = true;
  AttackResult attack;
  attack.broke_alliance = attacker.ally == &target;
  if (attack.broke_alliance) {
    EndAlliance(attacker);
    ++attacker.account->figures.alliance_screw_overs;
  } else if (dice_.Chance(BlockChance(attacker, target))) {
    ++target.account->figures.blocks;
    target.account->figures.score += kScorePerBlock;
    attack.was_blocked = true;
    return attack;
  }
  attack.topic = dice_.Pick(researched);
  attack.level = --target.LevelOf(attack.topic);
  target.was_set_back = true;
  ++attacker.account->figures.research_destroyed;
  attacker.account->figures.score += kScorePerHit;
  ++target.account->figures.research_lost;
  return attack;
}

Refusal Game::Propose(Contender& contender, Contender& other) {
  if (!contender.team.empty()) {
    return Refusal::TeamIsAlliance;
  }
  if (contender.ally != nullptr) {
    return contender.ally == &other ? Refusal::AlliedAlready : Refusal::HasAlly;
  }
  if (other.ally != nullptr) {
    return Refusal::OpponentHasAlly;
  }
  contender.proposed_to = &other;
  if (other.proposed_to == &contender) {
    contender.ally = &other;
    other.ally = &contender;
    contender.proposed_to = nullptr;
    other.proposed_to = nullptr;
  }
  return Refusal::None;
}

void Game::EndAlliance(Contender& contender) {
  if (contender.ally != nullptr) {
    contender.ally->ally = nullptr;
    contender.ally = nullptr;
  }
}

std::vector<Contender*> Game::WinnersWith(const Contender& contender) {
  std::vector<Contender*> winners;
  for (Contender& other : contenders_) {
    if (&other == &contender || other.IsOnSideOf(contender)) {
      winners.push_back(&other);
    }
  }
  return winners;
}

/// All points that the contender has and has spent on what it has.
int Game::Worth(const Contender& contender) {
  int worth = contender.points;
  for (int level : contender.levels) {
    worth += std::accumulate(kLevelCosts.begin(), kLevelCosts.begin() + level, 0);
  }
  return worth;
}

}  // namespace korvanta::practice

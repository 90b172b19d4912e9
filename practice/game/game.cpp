#include "practice/game/game.h"

namespace korvanta::practice {
namespace {

/// What each level costs before discounts, from level 1.
constexpr std::array<int, kTopLevel> kLevelCosts = {4, 8, 14, 22};
constexpr int kGoldenCost = 40;
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

/// By topic code, from 1.
constexpr std::array<TopicText, 5> kTopicTexts = {{
    {"Military", "Level 1 lets you attack, and each level makes your attacks harder to block."},
    {"Industry", "Each level brings one more research point with every tick."},
    {"Population", "Each level makes all research a tenth cheaper."},
    {"Defense", "Each level blocks more of the attacks on you."},
    {"Golden Knowledge", "It wins the game, and needs two topics at level 4."},
}};

/// All points that the contender has and has spent on what it has.
int Worth(const Contender& contender) {
  int worth = contender.points;
  for (int level : contender.levels) {
    worth += std::accumulate(kLevelCosts.begin(), kLevelCosts.begin() + level, 0);
  }
  return worth;
}

/// The probability that the target blocks the attacker, in percent.
int BlockChance(const Contender& attacker, const Contender& target) {
  return std::clamp(kBlockBase + kBlockPerDefense * target.LevelOf(TopicCode::Defense) -
                        kBlockPerMilitary * attacker.LevelOf(TopicCode::Military),
                    kLeastBlock, kMostBlock);
}

}  // namespace

const TopicText& TextOf(TopicCode topic) {
  return kTopicTexts.at(static_cast<std::size_t>(topic) - 1);
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

void Game::Leave(Contender& contender, bool may_return) {
  EndAlliance(contender);
  contender.proposed_to = nullptr;
  for (Contender& other : contenders_) {
    if (other.proposed_to == &contender) {
      other.proposed_to = nullptr;
    }
  }
  const auto place = std::ranges::find(contenders_, contender.account, &Contender::account);
  absent_.splice(absent_.end(), contenders_, place);
  if (!may_return) {
    absent_.pop_back();
  }
}

Contender* Game::Return(const Account& account) {
  const auto place = std::ranges::find(absent_, &account, &Contender::account);
  if (place == absent_.end()) {
    return nullptr;
  }
  contenders_.splice(contenders_.end(), absent_, place);
  return &*place;
}

Contender* Game::Find(const Account& account) {
  const auto place = std::ranges::find(contenders_, &account, &Contender::account);
  return place == contenders_.end() ? nullptr : &*place;
}

bool Game::IsOpen() const { return std::ranges::none_of(contenders_, &Contender::IsNearWinning); }

void Game::Tick() {
  for (Contender& contender : contenders_) {
    contender.points += Income(contender);
    contender.has_attacked = false;
    contender.was_set_back = false;
  }
  ++ticks_;
}

int Game::Income(const Contender& contender) const {
  return kBasicIncome + contender.LevelOf(TopicCode::Industry) + ticks_ / kTicksPerRise;
}

int Game::Cost(const Contender& contender, TopicCode topic) {
  const int full = topic == TopicCode::GoldenKnowledge
                       ? kGoldenCost
                       : kLevelCosts.at(static_cast<std::size_t>(
                             std::min(contender.LevelOf(topic), kTopLevel - 1)));
  const int percent = 100 - kDiscountPerPopulation * contender.LevelOf(TopicCode::Population);
  return (full * percent + 99) / 100;
}

Refusal Game::Research(Contender& contender, TopicCode topic, int level) {
  const bool wins = topic == TopicCode::GoldenKnowledge;
  const int reached = wins ? kGoldenLevel - 1 : contender.LevelOf(topic);
  const int cost = Cost(contender, topic);
  const Refusal refusal = wins && !contender.IsNearWinning() ? Refusal::GoldenKnowledgeNeedsTopics
                          : level <= reached                 ? Refusal::LevelReachedAlready
                          : level > reached + 1              ? Refusal::LevelOutOfOrder
                          : contender.points < cost          ? Refusal::ResearchTooDear
                                                             : Refusal::None;
  if (refusal != Refusal::None) {
    return refusal;
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
  std::vector<TopicCode> researched;
  std::copy_if(kTopicsWithLevels.begin(), kTopicsWithLevels.end(), std::back_inserter(researched),
               [&](TopicCode topic) { return target.LevelOf(topic) > 0; });
  const Refusal refusal = attacker.IsTeammateOf(target) ? Refusal::Teammate
                          : attacker.LevelOf(TopicCode::Military) == 0
                              ? Refusal::AttackNeedsMilitary
                          : attacker.has_attacked         ? Refusal::AttackedAlready
                          : target.was_set_back           ? Refusal::SetBackAlready
                          : researched.empty()            ? Refusal::NothingToDestroy
                          : attacker.points < kAttackCost ? Refusal::AttackTooDear
                                                          : Refusal::None;
  if (refusal != Refusal::None) {
    return {refusal};
  }
  attacker.points -= kAttackCost;
  attacker.has_attacked = true;
  AttackResult attack{.broke_alliance = attacker.ally == &target};
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
  const Refusal refusal = !contender.team.empty()     ? Refusal::TeamIsAlliance
                          : contender.ally == &other  ? Refusal::AlliedAlready
                          : contender.ally != nullptr ? Refusal::HasAlly
                          : other.ally != nullptr     ? Refusal::OpponentHasAlly
                                                      : Refusal::None;
  if (refusal != Refusal::None) {
    return refusal;
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

}  // namespace korvanta::practice

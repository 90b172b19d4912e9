#include "practice/game/game.h"

#include <algorithm>
#include <numeric>

#include "practice/wire/player_text.h"

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
    {"Golden Knowledge", "It wins the game, and takes two topics at level 4."},
}};

const TopicText& TextOf(Topic topic) { return kTopicTexts.at(static_cast<std::size_t>(topic) - 1); }

/// The reason why the contender cannot pay; empty when it can.
std::string Shortage(const Contender& contender, std::string_view what, int cost) {
  if (contender.points >= cost) {
    return {};
  }
  return std::string(what) + " costs " + Counted(cost, "point") + " and you have " +
         std::to_string(contender.points) + ".";
}

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

bool Contender::IsOnOneSideWith(const Contender& other) const {
  return ally == &other || (!team.empty() && team == other.team);
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

Game::Research Game::DoResearch(Contender& contender, Topic topic, int level) {
  const std::string name(TopicName(topic));
  if (topic == Topic::GoldenKnowledge) {
    if (!contender.IsNearWinning()) {
      return {"The Golden Knowledge takes two topics at level 4 first."};
    }
  } else {
    const int now = contender.LevelOf(topic);
    if (level <= now) {
      return {"You have reached " + name + " level " + std::to_string(level) + " already."};
    }
    if (level != now + 1) {
      return {"Levels come one by one: next is " + name + " level " + std::to_string(now + 1) +
              "."};
    }
  }
  const int cost = Cost(contender, topic);
  const bool wins = topic == Topic::GoldenKnowledge;
  if (std::string why = Shortage(
          contender, wins ? "The " + name : name + " level " + std::to_string(level), cost);
      !why.empty()) {
    return {why + " You get " + std::to_string(Income(contender)) + " with each tick."};
  }
  contender.points -= cost;
  ++contender.account->figures.research;
  contender.account->figures.score += kScorePerLevel * level;
  if (!wins) {
    contender.LevelOf(topic) = level;
  }
  return {{}, level, wins};
}

Game::Attack Game::DoAttack(Contender& attacker, Contender& target) {
  if (!attacker.team.empty() && attacker.team == target.team) {
    return {target.name() + " is in your team."};
  }
  if (attacker.LevelOf(Topic::Military) == 0) {
    return {"An attack takes Military level 1 at least."};
  }
  if (attacker.has_attacked) {
    return {"You have attacked already; wait for the next tick."};
  }
  if (target.was_set_back) {
    return {target.name() + " was set back already; wait for the next tick."};
  }
  std::vector<Topic> researched;
  std::copy_if(kTopicsWithLevels.begin(), kTopicsWithLevels.end(), std::back_inserter(researched),
               [&](Topic topic) { return target.LevelOf(topic) > 0; });
  if (researched.empty()) {
    return {target.name() + " has researched nothing that you could destroy."};
  }
  if (std::string why = Shortage(attacker, "An attack", kAttackCost); !why.empty()) {
    return {std::move(why)};
  }
  attacker.points -= kAttackCost;
  attacker.has_attacked = true;
  Attack attack;
  attack.broke_alliance = attacker.ally == &target;
  if (attack.broke_alliance) {
    EndAlliance(attacker);
    ++attacker.account->figures.alliance_screw_overs;
  } else if (dice_() % 100 < static_cast<std::uint64_t>(BlockChance(attacker, target))) {
    ++target.account->figures.blocks;
    target.account->figures.score += kScorePerBlock;
    attack.was_blocked = true;
    return attack;
  }
  attack.topic = researched[dice_() % researched.size()];
  attack.level = --target.LevelOf(attack.topic);
  target.was_set_back = true;
  ++attacker.account->figures.research_destroyed;
  attacker.account->figures.score += kScorePerHit;
  ++target.account->figures.research_lost;
  return attack;
}

Game::Alliance Game::Propose(Contender& contender, Contender& other) {
  if (!contender.team.empty()) {
    return {"In a tournament game your team is your alliance."};
  }
  if (contender.ally == &other) {
    return {other.name() + " is your ally already."};
  }
  if (contender.ally != nullptr) {
    return {"You are allied with " + contender.ally->name() + "; /break ends that."};
  }
  if (other.ally != nullptr) {
    return {other.name() + " has another ally."};
  }
  if (other.proposed_to != &contender) {
    contender.proposed_to = &other;
    return {};
  }
  contender.ally = &other;
  other.ally = &contender;
  contender.proposed_to = nullptr;
  other.proposed_to = nullptr;
  return {{}, true};
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
    if (&other == &contender || other.IsOnOneSideWith(contender)) {
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

/// The rules of one game: who takes part, what research and attacks cost and do, and who wins.
/// It says nothing to anybody: the arena runs it, and moves.h answers the players.
#pragma once

#include <algorithm>
#include <array>
#include <list>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/dice.h"
#include "practice/players/accounts.h"
#include "practice/words/sentences.h"
#include "protocol/topic_code.h"

namespace korvanta::practice {

inline constexpr std::array<TopicCode, 4> kTopicsWithLevels = {
    TopicCode::Military, TopicCode::Industry, TopicCode::Population, TopicCode::Defense};
inline constexpr int kTopLevel = 4;
/// The level that clients name when they ask for the Golden Knowledge.
inline constexpr int kGoldenLevel = 5;

struct TopicText {
  std::string_view name;
  std::string_view purpose;  ///< what it is good for, in one sentence
};
const TopicText& TextOf(TopicCode topic);

/// One player's place in a game.
struct Contender {
  Account* account;
  std::string team{};  ///< in a tournament game; otherwise empty
  int points = 0;
  std::array<int, kTopicsWithLevels.size()> levels{};  ///< 0 to 4 each
  Contender* ally = nullptr;
  const Contender* proposed_to = nullptr;  ///< who has been asked for an alliance last
  bool has_attacked = false;               ///< since the last tick
  bool was_set_back = false;               ///< since the last tick
  bool has_been_near_winning = false;

  const std::string& name() const { return account->name; }
  /// The topic must have levels.
  int& LevelOf(TopicCode topic) { return levels.at(static_cast<std::size_t>(topic) - 1); }
  int LevelOf(TopicCode topic) const { return levels.at(static_cast<std::size_t>(topic) - 1); }
  /// All levels together.
  int Progress() const { return std::accumulate(levels.begin(), levels.end(), 0); }
  /// Two topics are at level 4, so that the Golden Knowledge alone is missing.
  bool IsNearWinning() const { return std::ranges::count(levels, kTopLevel) >= 2; }
  bool IsTeammateOf(const Contender& other) const { return !team.empty() && team == other.team; }
  /// Its ally or teammate, which wins when it does.
  bool IsOnSideOf(const Contender& other) const { return ally == &other || IsTeammateOf(other); }
};

class Game {
 public:
  static constexpr int kAttackCost = 3;

  /// The dice must outlive the game, and so must the accounts that enter.
  explicit Game(Dice& dice) : dice_(dice) {}

  /// The account must not be in the game. Whoever comes late starts with points to catch up. The
  /// contender stays where it is until it leaves.
  Contender& Enter(Account& account, std::string_view team = {});
  /// Ends its alliance, too.
  void Leave(Contender& contender, bool may_return);
  /// One who has left is back with what it had; null when it may not return.
  Contender* Return(const Account& account);

  /// Null when the account takes no part.
  Contender* Find(const Account& account);
  /// In the order in which they entered.
  const std::list<Contender>& contenders() const { return contenders_; }

  /// Nobody is near winning yet, so that it is not too late to enter.
  bool IsOpen() const;
  int ticks() const { return ticks_; }

  /// Everyone gets their points; attacks are possible again.
  void Tick();
  /// Points that the contender gets with the next tick.
  int Income(const Contender& contender) const;
  /// Points that the next level of the topic costs the contender.
  static int Cost(const Contender& contender, TopicCode topic);

  /// The next level of a topic, or the Golden Knowledge, which wins.
  Refusal Research(Contender& contender, TopicCode topic, int level);

  struct AttackResult {
    Refusal refusal = Refusal::None;
    bool was_blocked = false;
    bool broke_alliance = false;
    TopicCode topic = TopicCode::Military;  ///< what was hit, when it was not blocked
    int level = 0;                          ///< of that topic now
  };
  /// The target must be another contender.
  AttackResult Attack(Contender& attacker, Contender& target);

  /// Offers an alliance, which is formed when the other has offered one, too. The other must be
  /// another contender.
  static Refusal Propose(Contender& contender, Contender& other);
  /// Ends the contender's alliance, if there is one.
  static void EndAlliance(Contender& contender);

  /// Everyone who wins when the contender does: itself, and its ally or its team.
  std::vector<Contender*> WinnersWith(const Contender& contender);

 private:
  Dice& dice_;
  std::list<Contender> contenders_;
  std::list<Contender> absent_;  // who may return
  int ticks_ = 0;
};

}  // namespace korvanta::practice

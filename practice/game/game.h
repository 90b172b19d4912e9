/// The rules of one game: who takes part, what research and attacks cost and do, and who wins.
/// It says nothing to anybody: the arena runs it, and the moves of players go to it through Moves.
#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/base/dice.h"
#include "practice/players/accounts.h"
#include "practice/words/sentences.h"

namespace korvanta::practice {

/// By its code on the wire.
enum class Topic : std::uint8_t { Military = 1, Industry, Population, Defense, GoldenKnowledge };

inline constexpr std::array<Topic, 4> kTopicsWithLevels = {Topic::Military, Topic::Industry,
                                                           Topic::Population, Topic::Defense};
inline constexpr int kTopLevel = 4;
/// The level that clients name when they ask for the Golden Knowledge.
inline constexpr int kGoldenLevel = 5;

std::string_view TopicName(Topic topic);
/// What the topic is good for, in one sentence.
std::string_view TopicPurpose(Topic topic);
/// Nothing for a text that is not a topic code.
std::optional<Topic> ReadTopic(std::string_view code);

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
  int& LevelOf(Topic topic) { return levels.at(static_cast<std::size_t>(topic) - 1); }
  int LevelOf(Topic topic) const { return levels.at(static_cast<std::size_t>(topic) - 1); }
  /// Two topics are at level 4, so that the Golden Knowledge alone is missing.
  bool IsNearWinning() const;
  bool IsTeammateOf(const Contender& other) const;
  /// Its ally or teammate, which wins when it does.
  bool IsOnSideOf(const Contender& other) const;
};

class Game {
 public:
  static constexpr int kAttackCost = 3;
  static constexpr int kGoldenCost = 40;

  /// The dice must outlive the game, and so must the accounts that enter.
  explicit Game(Dice& dice) : dice_(dice) {}

  /// The account must not be in the game. Whoever comes late starts with points to catch up. The
  /// contender stays where it is until it leaves.
  Contender& Enter(Account& account, std::string_view team = {});
  void Leave(const Contender& contender);
  /// A contender that has left is back with what it had, but for its ally.
  Contender& Return(const Contender& contender);

  /// Null when the account takes no part.
  Contender* Find(const Account& account);
  const Contender* Find(const Account& account) const;
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
  static int Cost(const Contender& contender, Topic topic);
  /// The probability that the target blocks the attacker, in percent.
  static int BlockChance(const Contender& attacker, const Contender& target);

  /// The next level of a topic, or the Golden Knowledge, which wins.
  Refusal Research(Contender& contender, Topic topic, int level);

  struct AttackResult {
    Refusal refusal = Refusal::None;
    bool was_blocked = false;
    bool broke_alliance = false;
    Topic topic = Topic::Military;  ///< what was hit, when it was not blocked
    int level = 0;                  ///< of that topic now
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
  static int Worth(const Contender& contender);

  Dice& dice_;
  std::list<Contender> contenders_;
  int ticks_ = 0;
};

}  // namespace korvanta::practice

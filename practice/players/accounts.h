/// The accounts of one run of the server and the figures that are counted for them, kept in memory
/// only: a name belongs to the first password that it was used with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "practice/words/sentences.h"

namespace korvanta::practice {

struct Figures {
  std::int64_t wins = 0;
  std::int64_t games_played = 0;
  std::int64_t research = 0;
  std::int64_t research_lost = 0;
  std::int64_t research_destroyed = 0;
  std::int64_t alliance_screw_overs = 0;
  std::int64_t score = 0;
  std::int64_t blocks = 0;
  std::int64_t alliance_wins = 0;

  /// 1 for a beginner, and one more for every 1,000 of total score.
  std::int64_t PlayerLevel() const;
  /// Codes of all awards reached: score, wins, research destroyed, blocks, the highest of each
  /// series first; 24 alone when there is none.
  std::vector<int> AwardCodes() const;
};

/// A UserID from here on makes an administrator.
inline constexpr std::int16_t kAdministratorId = 90;

struct Account {
  std::string name{};      ///< in the letter case of its first login
  std::string password{};  ///< empty for a simulated player, so that nobody can log in as it
  std::size_t number = 0;  ///< 1 for the first account of the run, and so on
  /// 90 for the first account of a person; the others count from 1 and stay at 89.
  std::int16_t user_id = 0;
  Figures figures{};

  bool IsAdministrator() const { return user_id >= kAdministratorId; }
};

class Accounts {
 public:
  /// The account of that name, made when the name is new; null when it is refused. It lives as long
  /// as this object.
  struct Admission {
    Refusal refusal = Refusal::None;
    Account* account = nullptr;
  };
  Admission Admit(std::string_view name, std::string_view password);

  /// An account for a simulated player, whose name must be a user name that is not taken.
  Account& AddSimulated(std::string_view name) { return Add(name, {}); }

  /// By name in any letter case; null when there is none.
  const Account* Find(std::string_view name) const;

  const std::map<std::string, Account>& all() const { return accounts_; }

 private:
  Account& Add(std::string_view name, std::string_view password);

  std::map<std::string, Account> accounts_;  // by NameKey
  bool has_administrator_ = false;
};

}  // namespace korvanta::practice

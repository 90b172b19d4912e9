#include "practice/players/accounts.h"

#include <algorithm>
#include <array>
#include <utility>

#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

/// In one run, so that strangers cannot make the server keep any number.
constexpr std::size_t kMostAccounts = 100'000;

struct Award {
  int code;
  std::int64_t Figures::*figure;
  std::int64_t threshold;
};

constexpr auto kAwards = std::to_array<Award>({{1, &Figures::score, 1'000'000},
                                               {2, &Figures::score, 500'000},
                                               {3, &Figures::score, 250'000},
                                               {4, &Figures::score, 100'000},
                                               {5, &Figures::score, 50'000},
                                               {22, &Figures::score, 25'000},
                                               {6, &Figures::score, 10'000},
                                               {21, &Figures::score, 1'000},
                                               {7, &Figures::wins, 1'000},
                                               {8, &Figures::wins, 500},
                                               {9, &Figures::wins, 100},
                                               {10, &Figures::wins, 10},
                                               {11, &Figures::wins, 1},
                                               {12, &Figures::research_destroyed, 5'000},
                                               {13, &Figures::research_destroyed, 1'000},
                                               {14, &Figures::research_destroyed, 250},
                                               {15, &Figures::research_destroyed, 100},
                                               {16, &Figures::research_destroyed, 50},
                                               {17, &Figures::blocks, 1'000},
                                               {18, &Figures::blocks, 500},
                                               {19, &Figures::blocks, 100},
                                               {23, &Figures::blocks, 50},
                                               {20, &Figures::blocks, 25}});
constexpr int kNoAwards = 24;

}  // namespace

std::int64_t Figures::PlayerLevel() const { return 1 + std::max<std::int64_t>(score, 0) / 1'000; }

std::vector<int> Figures::AwardCodes() const {
  std::vector<int> codes;
  for (const Award& award : kAwards) {
    if (this->*award.figure >= award.threshold) {
      codes.push_back(award.code);
    }
  }
  return codes.empty() ? std::vector{kNoAwards} : codes;
}

Accounts::Admission Accounts::Admit(std::string_view name, std::string_view password) {
  if (!IsUserName(name)) {
    return {Refusal::BadUserName};
  }
  if (!IsPassword(password)) {
    return {Refusal::BadPassword};
  }
  if (const auto known = accounts_.find(NameKey(name)); known != accounts_.end()) {
    return known->second.password == password ? Admission{Refusal::None, &known->second}
                                              : Admission{Refusal::WrongPassword};
  }
  if (accounts_.size() >= kMostAccounts) {
    return {Refusal::NoRoomForAccount};
  }
  const bool is_first = !std::exchange(has_administrator_, true);
  return {Refusal::None, &Add(name, password, is_first ? kAdministratorId : NextUserId())};
}

const Account* Accounts::Find(std::string_view name) const {
  const auto known = accounts_.find(NameKey(name));
  return known == accounts_.end() ? nullptr : &known->second;
}

Account& Accounts::Add(std::string_view name, std::string_view password, std::int16_t user_id) {
  const Account account = {std::string(name), std::string(password), accounts_.size() + 1, user_id};
  return accounts_.emplace(NameKey(name), account).first->second;
}

std::int16_t Accounts::NextUserId() {
  last_user_id_ = std::min<std::int16_t>(last_user_id_ + 1, kAdministratorId - 1);
  return last_user_id_;
}

}  // namespace korvanta::practice

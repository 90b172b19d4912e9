#include "practice/players/accounts.h"

#include <algorithm>
#include <utility>

#include "practice/base/player_text.h"

namespace korvanta::practice {
namespace {

/// In one run, so that strangers cannot make the server keep any number.
constexpr std::size_t kMostAccounts = 100'000;

/// The awards for one figure, each with its threshold.
struct AwardSeries {
  std::int64_t Figures::*figure;
  std::vector<std::pair<int, std::int64_t>> awards;
};

constexpr int kNoAwards = 24;

}  // namespace

std::int64_t Figures::PlayerLevel() const { return 1 + std::max<std::int64_t>(score, 0) / 1'000; }

std::vector<int> Figures::AwardCodes() const {
  static const AwardSeries kSeries[] = {
      {&Figures::score,
       {{1, 1'000'000},
        {2, 500'000},
        {3, 250'000},
        {4, 100'000},
        {5, 50'000},
        {22, 25'000},
        {6, 10'000},
        {21, 1'000}}},
      {&Figures::wins, {{7, 1'000}, {8, 500}, {9, 100}, {10, 10}, {11, 1}}},
      {&Figures::research_destroyed, {{12, 5'000}, {13, 1'000}, {14, 250}, {15, 100}, {16, 50}}},
      {&Figures::blocks, {{17, 1'000}, {18, 500}, {19, 100}, {23, 50}, {20, 25}}}};
  std::vector<int> codes;
  for (const auto& [figure, awards] : kSeries) {
    for (const auto& [code, threshold] : awards) {
      if (this->*figure >= threshold) {
        codes.push_back(code);
      }
    }
  }
  return codes.empty() ? std::vector{kNoAwards} : codes;
}

Accounts::Admission Accounts::Admit(std::string_view name, std::string_view password) {
  const auto known = accounts_.find(NameKey(name));
  const bool is_new = known == accounts_.end();
  const Refusal refusal = !IsUserName(name)                               ? Refusal::BadUserName
                          : !IsPassword(password)                         ? Refusal::BadPassword
                          : !is_new && known->second.password != password ? Refusal::WrongPassword
                          : is_new && accounts_.size() >= kMostAccounts ? Refusal::NoRoomForAccount
                                                                        : Refusal::None;
  if (refusal != Refusal::None) {
    return {refusal};
  }
  Account& account = is_new ? Add(name, password) : known->second;
  if (is_new && !std::exchange(has_administrator_, true)) {
    account.user_id = kAdministratorId;
  }
  return {Refusal::None, &account};
}

const Account* Accounts::Find(std::string_view name) const {
  const auto known = accounts_.find(NameKey(name));
  return known == accounts_.end() ? nullptr : &known->second;
}

Account& Accounts::Add(std::string_view name, std::string_view password) {
  const std::size_t number = accounts_.size() + 1;
  const std::size_t user_id =
      std::min<std::size_t>(number - (has_administrator_ ? 1 : 0), kAdministratorId - 1);
  const Account account = {std::string(name), std::string(password), number,
                           static_cast<std::int16_t>(user_id)};
  return accounts_.emplace(NameKey(name), account).first->second;
}

}  // namespace korvanta::practice

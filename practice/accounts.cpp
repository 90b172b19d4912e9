#include "practice/accounts.h"

#include <algorithm>

#include "practice/player_text.h"

namespace korvanta::practice {
namespace {

std::int16_t UserIdOf(std::size_t account_number) {
  constexpr std::size_t kLastOrdinaryId = kAdministratorId - 1;
  return account_number == 1
             ? kAdministratorId
             : static_cast<std::int16_t>(std::min(account_number - 1, kLastOrdinaryId));
}

}  // namespace

Accounts::Admission Accounts::Admit(std::string_view name, std::string_view password) {
  if (!IsUserName(name)) {
    return {Verdict::BadName};
  }
  if (!IsPassword(password)) {
    return {Verdict::BadPassword};
  }
  const std::string key = NameKey(name);
  const auto known = accounts_.find(key);
  if (known != accounts_.end()) {
    if (known->second.password != password) {
      return {Verdict::WrongPassword};
    }
    return {Verdict::Accepted, &known->second};
  }
  if (accounts_.size() >= kMost) {
    return {Verdict::NoRoom};
  }
  const std::size_t number = accounts_.size() + 1;
  Account& account = accounts_[key];
  account.name = name;
  account.password = password;
  account.number = number;
  account.user_id = UserIdOf(number);
  return {Verdict::Accepted, &account};
}

const Account* Accounts::Find(std::string_view name) const {
  const auto known = accounts_.find(NameKey(name));
  return known == accounts_.end() ? nullptr : &known->second;
}

}  // namespace korvanta::practice

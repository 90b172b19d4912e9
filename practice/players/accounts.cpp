#include "practice/players/accounts.h"

#include <algorithm>
#include <utility>

#include "practice/base/player_text.h"

namespace korvanta::practice {
Accounts::Admission Accounts::Admit(std::string_view name, std::string_view password) {
  if (!IsUserName(name)) {
    return {Refusal::BadUserName};
  }
  if (!IsPassword(password)) {
    return {Refusal::BadPassword};
  }
  const std::string key = NameKey(name);
  const auto known = accounts_.find(key);
  if (known != accounts_.end()) {
    if (known->second.password != password) {
      return {Refusal::WrongPassword};
    }
    return {Refusal::None, &known->second};
  }
  if (accounts_.size() >= kMost) {
    return {Refusal::NoRoomForAccount};
  }
  if (!std::exchange(has_administrator_, true)) {
    return {Refusal::None, &Add(name, password, kAdministratorId)};
  }
  return {Refusal::None, &Add(name, password, NextUserId())};
}

Account* Accounts::AddSimulated(std::string_view name) {
  return IsUserName(name) && Find(name) == nullptr ? &Add(name, {}, NextUserId()) : nullptr;
}

const Account* Accounts::Find(std::string_view name) const {
  const auto known = accounts_.find(NameKey(name));
  return known == accounts_.end() ? nullptr : &known->second;
}

Account& Accounts::Add(std::string_view name, std::string_view password, std::int16_t user_id) {
  Account& account = accounts_[NameKey(name)];
  account.name = name;
  account.password = password;
  account.number = accounts_.size();
  account.user_id = user_id;
  return account;
}

std::int16_t Accounts::NextUserId() {
  last_user_id_ = std::min<std::int16_t>(last_user_id_ + 1, kAdministratorId - 1);
  return last_user_id_;
}

}  // namespace korvanta::practice

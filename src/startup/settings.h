/// The program's settings: ten entries of the settings store, read once at start-up and written
/// once when the main window closes. Between the two they live in memory only.
#pragma once

#include <cstdint>
#include <string>

#include "platform/settings_store.h"
#include "protocol/options.h"
#include "startup/saved_logins.h"

namespace korvanta {

struct Settings {
  Options& options;
  SavedLogins& saved_logins;
  bool LoginSetting = false;     ///< kept for the store's sake; nothing else uses it
  std::int32_t TimeSetting = 1;  ///< likewise
};

namespace modFiles {

/// Reads every entry once. An entry that is absent, or does not convert to what it holds, gives its
/// default; numbers are rounded to the nearest whole one, halves to the even neighbour. Stored
/// logins are added to those in memory.
void LoadSettings(Settings& settings, SettingsStore& store);

/// Saves every entry and then commits once. Returns an empty text on success, otherwise the store's
/// sentence for the user.
std::string SaveSettings(const Settings& settings, SettingsStore& store);

}  // namespace modFiles

}  // namespace korvanta

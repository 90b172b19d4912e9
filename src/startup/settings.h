/// The program's settings: ten entries of the settings store, read once at start-up and written
/// once when the main window closes; in between they are kept in memory only.
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
  bool LoginSetting = false;     ///< loaded and saved, otherwise unused
  std::int32_t TimeSetting = 1;  ///< likewise
};

namespace modFiles {

/// Reads every entry. One that is absent or cannot be converted gets its default. Numbers are
/// rounded to the nearest integer, ties to even. Stored logins are added to those in memory.
void LoadSettings(Settings& settings, SettingsStore& store);

/// Saves every entry and then commits. Returns an empty text on success, otherwise the store's
/// sentence for the user.
std::string SaveSettings(const Settings& settings, SettingsStore& store);

}  // namespace modFiles

}  // namespace korvanta

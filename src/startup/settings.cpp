#include "startup/settings.h"

#include <cmath>
#include <limits>
#include <optional>

#include "protocol/field_reading.h"

namespace korvanta {
namespace {

bool GetBoolean(SettingsStore& store, std::string_view section, std::string_view key,
                bool default_value) {
  return ParseBoolean(store.Get(section, key, "")).value_or(default_value);
}

void SaveBoolean(SettingsStore& store, std::string_view section, std::string_view key, bool value) {
  store.Save(section, key, value ? "True" : "False");
}

std::int32_t GetWholeNumber(SettingsStore& store, std::string_view section, std::string_view key,
                            std::int32_t default_value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const auto number = ParseNumber(store.Get(section, key, ""));
  const double rounded = number ? std::nearbyint(*number) : default_value;
  return rounded >= Limits::min() && rounded <= Limits::max() ? static_cast<std::int32_t>(rounded)
                                                              : default_value;
}

}  // namespace

void modFiles::LoadSettings(Settings& settings, SettingsStore& store) {
  Options& options = settings.options;
  options.mnuScrollLock = GetBoolean(store, "Menu", "ScrollLock", false);
  options.mnuFilter = GetBoolean(store, "Menu", "LanguageFilter", true);
  options.mnuLogins = GetBoolean(store, "Menu", "IgnoreLogins", false);
  settings.LoginSetting = GetBoolean(store, "Settings", "Login", false);
  settings.TimeSetting = GetWholeNumber(store, "Client Data", "Time", 1);
  options.mSounds = GetBoolean(store, "Menu", "Sounds", true);
  settings.saved_logins.LastUser = store.Get("Logins", "Last User", "");
  settings.saved_logins.AddStored(store.Get("Logins", "User/Password", ""));
  options.mnuAutoChat = GetBoolean(store, "Menu", "Auto Chat", true);
  options.mAuto = GetBoolean(store, "Menu", "Auto Ready", false);
}

std::string modFiles::SaveSettings(const Settings& settings, SettingsStore& store) {
  const Options& options = settings.options;
  SaveBoolean(store, "Menu", "ScrollLock", options.mnuScrollLock);
  SaveBoolean(store, "Menu", "LanguageFilter", options.mnuFilter);
  SaveBoolean(store, "Menu", "IgnoreLogins", options.mnuLogins);
  SaveBoolean(store, "Menu", "Sounds", options.mSounds);
  store.Save("Client Data", "Time", std::to_string(settings.TimeSetting));
  store.Save("Logins", "Last User", settings.saved_logins.LastUser);
  store.Save("Logins", "User/Password", settings.saved_logins.ToStored());
  SaveBoolean(store, "Settings", "Login", settings.LoginSetting);
  SaveBoolean(store, "Menu", "Auto Chat", options.mnuAutoChat);
  SaveBoolean(store, "Menu", "Auto Ready", options.mAuto);
  return store.Commit();
}

}  // namespace korvanta

/// The per-user store of the program's settings; the settings module is its one user.
#pragma once

#include <string>
#include <string_view>

namespace korvanta {

/// A map from (section, key) to text. Sections and keys are taken exactly as given, slashes and
/// spaces included; texts are bytes in Windows-1252 and come back unchanged, every value of a byte
/// allowed. Entries that nobody saves stay as they are.
class SettingsStore {
 public:
  SettingsStore() = default;
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;
  virtual ~SettingsStore() = default;

  /// The stored text, or `default_text` when the entry is absent or the store cannot be read.
  virtual std::string Get(std::string_view section, std::string_view key,
                          std::string_view default_text) = 0;

  /// Creates or replaces an entry; it lasts once `Commit` has said so.
  virtual void Save(std::string_view section, std::string_view key, std::string_view text) = 0;

  /// Writes everything saved, all of it or nothing. Returns an empty text on success, otherwise one
  /// sentence for the user; what was stored before is then untouched.
  virtual std::string Commit() = 0;
};

}  // namespace korvanta

/// The per-user store of the program's settings. Used by the settings module alone.
#pragma once

#include <string>
#include <string_view>

namespace korvanta {

/// A map from (section, key) to text. Sections and keys are used verbatim, slashes and spaces
/// included. Texts are bytes in Windows-1252: every byte value is allowed and read back unchanged.
/// Entries that are not saved keep what is stored.
class SettingsStore {
 public:
  SettingsStore() = default;
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;
  virtual ~SettingsStore() = default;

  /// The stored text, or `default_text` if the entry is absent or the store cannot be read.
  virtual std::string Get(std::string_view section, std::string_view key,
                          std::string_view default_text) = 0;

  /// Creates or replaces an entry; permanent only after a successful `Commit`.
  virtual void Save(std::string_view section, std::string_view key, std::string_view text) = 0;

  /// Writes everything saved, all or nothing. Returns an empty text on success; otherwise one
  /// sentence for the user, and what was stored before is untouched.
  virtual std::string Commit() = 0;
};

}  // namespace korvanta

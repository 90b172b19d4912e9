/// The settings store in a file of the user's own.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/settings_store.h"
#include "startup/settings_text.h"

namespace korvanta {

/// The file is read once, with the first call that needs it, and replaced as a whole by `Commit`;
/// it is at every instant the old one or the new one, readable by its user only. What could not be
/// read back, because it is longer than 4 MiB, is not written: `Commit` fails.
///
/// A file that is damaged, or too long to be one of settings, is not lost: `Commit` backs it up
/// under its name with ".bak" added, and a number where that is taken. What could be read of it is
/// kept. A file that cannot be read at all is left alone; `Commit` then fails.
class IniSettingsStore final : public SettingsStore {
 public:
  /// The file of the program whose executable has that base name.
  static QString FileFor(const QString& program_name);

  explicit IniSettingsStore(QString file);

  std::string Get(std::string_view section, std::string_view key,
                  std::string_view default_text) override;
  void Save(std::string_view section, std::string_view key, std::string_view text) override;
  std::string Commit() override;

 private:
  void Load();

  QString file_;
  bool is_loaded_ = false;
  bool is_damaged_ = false;   ///< the file is to be backed up
  std::string read_failure_;  ///< why the file could not be read; empty when it could
  SettingsText entries_;
};

}  // namespace korvanta

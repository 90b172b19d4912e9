/// The settings store in a file of the user's.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/settings_store.h"
#include "startup/settings_text.h"

namespace korvanta {

/// The file is read by the first call that needs it and replaced atomically by `Commit`; only its
/// user can read it. Settings longer than 4 MiB, which could not be read back, are not written:
/// `Commit` fails.
///
/// A damaged file, or one too long to hold settings, is not lost: `Commit` backs it up under its
/// name with ".bak" appended, and a number if that is taken. What could be read of it is kept. A
/// file that cannot be read at all is left alone; `Commit` then fails.
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
  std::string read_failure_;  ///< why the file could not be read; empty if it could
  SettingsText entries_;
};

}  // namespace korvanta

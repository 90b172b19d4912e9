/// The text of the settings file, in which names and values may hold any bytes. Used by the
/// settings store.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "startup/ini_text.h"

namespace korvanta {

/// Bytes that are not printable ASCII or have a special meaning are escaped as '%' and two
/// hexadecimal digits.
class SettingsText {
 public:
  SettingsText() = default;
  explicit SettingsText(std::string_view text) : lines_(text) {}

  /// Whether the text had malformed lines; they are not part of `Text`.
  bool IsDamaged() const { return lines_.MalformedLine().has_value(); }

  std::optional<std::string> Find(std::string_view section, std::string_view key) const;

  /// Creates or replaces the entry; everything else stays. Names must not be empty.
  void Set(std::string_view section, std::string_view key, std::string_view text);

  std::string Text() const { return lines_.Text(); }

 private:
  IniText lines_;
};

}  // namespace korvanta

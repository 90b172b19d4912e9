/// The settings as the text of their file, in which any bytes may be names and values; the settings
/// store reads and writes it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "startup/ini_text.h"

namespace korvanta {

/// Bytes that are not printable ASCII, and those with a meaning of their own, stand in the text as
/// '%' and two hexadecimal digits.
class SettingsText {
 public:
  SettingsText() = default;
  explicit SettingsText(std::string_view text) : lines_(text) {}

  /// Not every line made sense; those that did not are not part of `Text`.
  bool IsDamaged() const { return lines_.MalformedLine().has_value(); }

  std::optional<std::string> Find(std::string_view section, std::string_view key) const;

  /// Creates or replaces the entry; everything else stays as it is. No name is empty.
  void Set(std::string_view section, std::string_view key, std::string_view text);

  std::string Text() const { return lines_.Text(); }

 private:
  IniText lines_;
};

}  // namespace korvanta

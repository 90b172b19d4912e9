/// The text of a small file of sections, keys and values. Used for the settings and the deployment
/// values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta {

/// Lines "[section]", "key=value", and comments that start with ';' or '#'. Names and values are
/// raw bytes, without blanks around them and byte order marks before them. Lines that are not
/// replaced keep their text, trimmed, and their position.
class IniText {
 public:
  IniText() = default;

  /// Parses every well-formed line; `MalformedLine` is the first that is not.
  explicit IniText(std::string_view text);

  /// The first line that is none of the three or holds control characters. Such lines are not part
  /// of `Text`.
  const std::optional<std::string>& MalformedLine() const { return malformed_line_; }

  /// The value of the first entry of that name.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  /// Replaces the entry, or adds it at the end of its section. No argument may hold line breaks or
  /// begin or end with a blank, and no name any of "=[];#".
  void Set(std::string_view section, std::string_view key, std::string_view value);

  std::string Text() const;

 private:
  struct Line {
    std::string section;
    std::string key;  ///< empty if the line is not an entry
    std::string value;
    std::string text;
  };

  void AddLine(std::string_view raw_line, std::string_view& section);

  std::vector<Line> lines_;
  std::optional<std::string> malformed_line_;
};

}  // namespace korvanta

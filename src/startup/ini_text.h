/// The text of a small file of sections, keys and values; used for the settings and the deployment
/// values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta {

/// Lines "[section]", "key=value", and comments that start with ';' or '#'. Names and values are
/// raw bytes without the blanks around them and without byte order marks before them. Whatever is
/// not replaced keeps its line, without the blanks around it, and its place.
class IniText {
 public:
  IniText() = default;

  /// Takes every line that makes sense; `MalformedLine` is the first that does not.
  explicit IniText(std::string_view text);

  /// A line that is none of the three or holds control characters; it is not part of `Text`.
  const std::optional<std::string>& MalformedLine() const { return malformed_line_; }

  /// The value of the first such entry.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

  /// Replaces the entry, or puts it at the end of its section. Nothing given may hold line breaks
  /// or begin or end with a blank, and names none of the characters that end them.
  void Set(std::string_view section, std::string_view key, std::string_view value);

  std::string Text() const;

 private:
  struct Line {
    std::string section;
    std::string key;  ///< empty for what is not an entry
    std::string value;
    std::string text;
  };

  void AddLine(std::string_view whole_line, std::string_view& section);

  std::vector<Line> lines_;
  std::optional<std::string> malformed_line_;
};

}  // namespace korvanta

#include "startup/ini_text.h"

#include <algorithm>

#include "base/trim.h"

namespace korvanta {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

constexpr std::string_view kBlanks = " \t\r";

bool HasControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return (c >= 0 && c < ' ' && c != '\t') || c == '\x7f'; });
}

std::string EntryLine(std::string_view key, std::string_view value) {
  return std::string(key).append("=").append(value);
}

}  // namespace

IniText::IniText(std::string_view text) {
  std::string_view section;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    AddLine(Trim(text.substr(0, end), kBlanks), section);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void IniText::AddLine(std::string_view raw_line, std::string_view& section) {
  // A byte order mark is never part of a name. It stays with its line, except in the first line
  // kept, where it belongs to the file.
  std::string_view text = raw_line;
  while (text.starts_with(kByteOrderMark)) {
    text = Trim(text.substr(kByteOrderMark.size()), kBlanks);
  }
  const std::size_t equals = text.find('=');
  const bool is_comment = text.empty() || text.front() == ';' || text.front() == '#';
  const bool is_header = text.starts_with('[') && text.ends_with(']');
  const bool is_entry = equals != std::string_view::npos && equals > 0;
  if (HasControlCharacter(text) || !(is_comment || is_header || is_entry)) {
    malformed_line_ = malformed_line_.value_or(std::string(text));
    return;
  }
  Line line{
      .section = {}, .key = {}, .value = {}, .text = std::string(lines_.empty() ? text : raw_line)};
  if (is_header) {
    section = Trim(text.substr(1, text.size() - 2), kBlanks);
  } else if (!is_comment) {
    line.key = Trim(text.substr(0, equals), kBlanks);
    line.value = Trim(text.substr(equals + 1), kBlanks);
  }
  line.section = section;
  lines_.push_back(std::move(line));
}

std::optional<std::string_view> IniText::Find(std::string_view section,
                                              std::string_view key) const {
  for (const Line& line : lines_) {
    if (!line.key.empty() && line.key == key && line.section == section) {
      return line.value;
    }
  }
  return std::nullopt;
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  Line entry{std::string(section), std::string(key), std::string(value), EntryLine(key, value)};
  auto insert_at = lines_.end();
  for (auto line = lines_.begin(); line != lines_.end(); ++line) {
    if (line->section == section && !line->text.empty()) {
      if (line->key == key) {
        *line = std::move(entry);
        return;
      }
      insert_at = line + 1;
    }
  }
  if (insert_at == lines_.end() && (lines_.empty() || lines_.back().section != section)) {
    lines_.push_back({entry.section, {}, {}, "[" + entry.section + "]"});
    insert_at = lines_.end();
  }
  lines_.insert(insert_at, std::move(entry));
}

std::string IniText::Text() const {
  std::string text;
  for (const Line& line : lines_) {
    text.append(line.text).append("\n");
  }
  return text;
}

}  // namespace korvanta

/// Fuzz target: the settings, from any text in their file to what is saved again.
#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "fuzz/input.h"
#include "platform/settings_store.h"
#include "startup/settings.h"
#include "startup/settings_text.h"

namespace korvanta::fuzz {
namespace {

using Name = std::pair<std::string, std::string>;

/// The settings in a file of which only the text is there.
class TextStore : public SettingsStore {
 public:
  explicit TextStore(std::string_view text) : text_(text) {}

  std::string Get(std::string_view section, std::string_view key,
                  std::string_view default_text) override {
    return text_.Find(section, key).value_or(std::string(default_text));
  }
  void Save(std::string_view section, std::string_view key, std::string_view text) override {
    text_.Set(section, key, text);
  }
  std::string Commit() override { return {}; }

  const SettingsText& text() const { return text_; }

 private:
  SettingsText text_;
};

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  return first == std::string::npos
             ? ""
             : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

std::string WithoutMarks(std::string line) {
  while (line.starts_with(kByteOrderMark)) {
    line = Trimmed(line.substr(kByteOrderMark.size()));
  }
  return line;
}

/// The lines of any text without the blanks around them, each with its break; byte order marks at
/// the very start belong to no line.
std::string Lines(std::string_view text) {
  std::string lines;
  for (bool is_first = true; !text.empty(); is_first = false) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line = Trimmed(std::string(text.substr(0, end)));
    lines += (is_first ? WithoutMarks(line) : line) + "\n";
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

/// The lines of a file as it is written, without the ten entries that the program keeps there and
/// without the headers of their sections.
std::vector<std::string> ForeignLines(const std::string& text) {
  static const std::map<std::string, std::set<std::string>> kOwn = {
      {"Menu",
       {"ScrollLock", "LanguageFilter", "IgnoreLogins", "Sounds", "Auto Chat", "Auto Ready"}},
      {"Settings", {"Login"}},
      {"Client Data", {"Time"}},
      {"Logins", {"Last User", "User/Password"}},
  };
  std::vector<std::string> foreign;
  auto own = kOwn.end();
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    const std::string whole_line = text.substr(at, end - at);
    const std::string line = WithoutMarks(whole_line);
    at = end + 1;
    const bool is_header = line.starts_with('[') && line.ends_with(']');
    if (is_header) {
      own = kOwn.find(Trimmed(line.substr(1, line.size() - 2)));
    }
    const bool is_own =
        own != kOwn.end() &&
        (is_header || own->second.contains(Trimmed(line.substr(0, line.find('=')))));
    if (!is_own) {
      foreign.push_back(whole_line);
    }
  }
  return foreign;
}

/// One run of the program: what it reads and what it saves.
struct Run {
  explicit Run(std::string_view file) : store(file) {
    logins.Reset();
    modFiles::LoadSettings(settings, store);
    before = store.text().Text();
    modFiles::SaveSettings(settings, store);
    after = store.text().Text();
  }

  TextStore store;
  Options options;
  SavedLogins logins;
  Settings settings{options, logins};
  std::string before, after;
};

std::string Show(const SavedLogins& logins) {
  std::string shown = logins.LastUser + "\n";
  for (const SavedLogin& login : logins.Logins()) {
    if (!login.UserName.empty()) {
      shown += login.UserName + "\n" + login.Password + "\n";
    }
  }
  return shown;
}

void CheckRuns(std::string_view file) {
  const Run first(file);
  const Run second(first.after);
  Check(first.store.text().IsDamaged() || first.before == Lines(file),
        "what makes sense is read line by line");
  Check(!second.store.text().IsDamaged(), "what was saved makes sense");
  Check(second.before == first.after, "a file that was saved is read as it stands");
  Check(second.after == first.after, "saving it again changes nothing");
  Check(Show(second.logins) == Show(first.logins), "the logins come back");
  Check(second.settings.TimeSetting == first.settings.TimeSetting, "the number comes back");
  Check(ForeignLines(first.before) == ForeignLines(first.after), "foreign lines stay");
}

/// Entries of any bytes put into any file, each found again among the others.
void CheckEntries(std::string_view file, Events events) {
  SettingsText text(file);
  std::map<Name, std::string> entries;
  while (!events.AtEnd()) {
    Event event = events.Next();
    const std::size_t first = event.TakeNumber() % 16 + 1;
    const std::size_t second = event.TakeNumber() % 16 + 1;
    const std::string section(event.text.substr(0, first));
    event.text.remove_prefix(section.size());
    const std::string key(event.text.substr(0, second));
    if (key.empty()) {
      break;
    }
    event.text.remove_prefix(key.size());
    text.Set(section, key, event.text);
    entries[{section, key}] = event.text;
  }
  const SettingsText again(text.Text());
  Check(!again.IsDamaged() && again.Text() == text.Text(), "the text is read as it was written");
  for (const auto& [name, value] : entries) {
    Check(text.Find(name.first, name.second) == value, "an entry is found");
    Check(again.Find(name.first, name.second) == value, "an entry comes back");
  }
}

/// Logins of any names and passwords, as settings from elsewhere may hold them.
void CheckLogins(Events events) {
  SavedLogins logins;
  while (!events.AtEnd()) {
    const std::string_view text = events.Next().text;
    const std::size_t comma = text.find(',');
    logins.Add({std::string(text.substr(0, comma)),
                comma == std::string_view::npos ? "" : std::string(text.substr(comma + 1))});
  }
  SavedLogins expected;
  for (SavedLogin login : logins.Logins()) {
    if (!login.UserName.empty() && modData::ScrambleLoginText(login.UserName, true)) {
      if (!modData::ScrambleLoginText(login.Password, true)) {
        login.Password.clear();
      }
      expected.Add(std::move(login));
    }
  }
  SavedLogins again;
  again.AddStored(logins.ToStored());
  Check(Show(again) == Show(expected), "every login that can be written comes back");
  Check(again.ToStored() == logins.ToStored(), "and is written the same again");
}

}  // namespace
}  // namespace korvanta::fuzz

/// The input's first event is the file, every later one an entry or a login.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  Events events(AsText(data, size));
  if (!events.AtEnd()) {
    const std::string_view file = events.Next().text;
    CheckRuns(file);
    CheckEntries(file, events);
    CheckLogins(events);
  }
  return 0;
}

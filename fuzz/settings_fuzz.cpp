/// Fuzz target: the settings, from any text in their file to what is saved again.
#include <map>
#include <set>
#include <sstream>

#include "fuzz/input.h"
#include "startup/settings.h"
#include "startup/settings_text.h"

namespace korvanta::fuzz {
namespace {

using Name = std::pair<std::string, std::string>;  ///< section and key

/// The settings in a file of which only the text is there.
struct TextStore : public SettingsStore {
  explicit TextStore(std::string_view file) : text(file) {}

  std::string Get(std::string_view section, std::string_view key,
                  std::string_view default_text) override {
    return text.Find(section, key).value_or(std::string(default_text));
  }
  void Save(std::string_view section, std::string_view key, std::string_view value) override {
    text.Set(section, key, value);
    saved.emplace(section, key);
  }
  std::string Commit() override { return {}; }
  SettingsText text;
  std::set<Name> saved;
};

std::string Trimmed(std::string text) {
  text.erase(0, text.find_first_not_of(" \t\r"));
  text.erase(text.find_last_not_of(" \t\r") + 1);
  return text;
}

std::string WithoutMarks(std::string line) {
  while (line.starts_with("\xef\xbb\xbf")) {
    line = Trimmed(line.substr(3));
  }
  return line;
}

/// The lines of any text, each with its break; marks at the very start belong to no line.
std::string Lines(std::string_view text) {
  std::istringstream in{std::string(text)};
  std::string lines;
  for (std::string line; std::getline(in, line);) {
    lines += (lines.empty() ? WithoutMarks(Trimmed(line)) : Trimmed(line)) + "\n";
  }
  return lines;
}

/// The lines of a file as it is written, without those entries and the headers of their sections.
std::string ForeignLines(const std::string& text, const std::set<Name>& own) {
  std::istringstream in(text);
  std::string section, foreign;
  for (std::string whole_line; std::getline(in, whole_line);) {
    const std::string line = WithoutMarks(whole_line);
    Name name{section, Trimmed(line.substr(0, line.find('=')))};
    if (line.starts_with('[') && line.ends_with(']')) {
      section = Trimmed(line.substr(1, line.size() - 2));
      const auto entry = own.lower_bound({section, ""});
      name = entry != own.end() && entry->first == section ? *entry : Name();
    }
    foreign += own.contains(name) ? "" : whole_line + "\n";
  }
  return foreign;
}

std::string Show(const SavedLogins& logins) {
  std::string shown = logins.LastUser + "\n";
  for (const SavedLogin& login : logins.Logins()) {
    shown += login.UserName.empty() ? "" : login.UserName + "\n" + login.Password + "\n";
  }
  return shown;
}

struct Run {
  explicit Run(std::string_view file) : store(file) {
    modFiles::LoadSettings(settings, store);
    modFiles::SaveSettings(settings, store);
  }
  TextStore store;
  Options options;
  SavedLogins logins;
  Settings settings{options, logins};
};

void CheckRuns(std::string_view file) {
  const SettingsText read(file);
  const Run first(file);
  const std::string saved = first.store.text.Text();
  const SettingsText read_again(saved);
  const Run second(saved);
  Check(read.IsDamaged() || read.Text() == Lines(file), "what makes sense is read line by line");
  Check(!read_again.IsDamaged() && read_again.Text() == saved, "what was saved is read as it is");
  Check(second.store.text.Text() == saved, "saving it again changes nothing");
  Check(Show(second.logins) == Show(first.logins), "the logins come back");
  Check(second.settings.TimeSetting == first.settings.TimeSetting, "the number comes back");
  const std::set<Name>& own = first.store.saved;
  Check(ForeignLines(read.Text(), own) == ForeignLines(saved, own), "foreign lines stay");
}

/// Any bytes as entries of any file, and as saved logins, each found again among the others.
void CheckEntriesAndLogins(std::string_view file, Events events) {
  SettingsText text(file);
  std::map<Name, std::string> entries;
  SavedLogins logins, expected;
  while (!events.AtEnd()) {
    Event event = events.Next();
    const auto take = [&rest = event] {
      const std::size_t size = rest.TakeNumber() % 16 + 1;
      std::string taken(rest.text.substr(0, size));
      rest.text.remove_prefix(taken.size());
      return taken;
    };
    const Name name{take(), take() + "k"};
    text.Set(name.first, name.second, event.text);
    entries[name] = event.text;
    logins.Add({name.first, name.second});
    const auto password = modData::ScrambleLoginText(name.second, true);
    if (modData::ScrambleLoginText(name.first, true)) {
      expected.Add({name.first, password ? name.second : ""});
    }
  }
  const SettingsText again(text.Text());
  Check(!again.IsDamaged() && again.Text() == text.Text(), "the text is read as it was written");
  for (const auto& [name, value] : entries) {
    Check(text.Find(name.first, name.second) == value, "an entry is found");
    Check(again.Find(name.first, name.second) == value, "an entry comes back");
  }
  SavedLogins loaded;
  loaded.AddStored(logins.ToStored());
  Check(Show(loaded) == Show(expected), "every login that can be written comes back");
}

}  // namespace
}  // namespace korvanta::fuzz

/// The input's first event is the file, every later one an entry and a login.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  Events events(data, size);
  const std::string_view file = events.Next().text;
  CheckRuns(file);
  CheckEntriesAndLogins(file, events);
  return 0;
}

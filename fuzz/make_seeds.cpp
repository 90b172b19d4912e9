/// make_seeds FOLDER <fuzz/seeds.txt: writes the inputs that the text describes, in one folder for
/// each target, and the words of the protocol as a dictionary.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/input.h"
#include "protocol/message_kind.h"
#include "protocol/message_table.h"
#include "tests/fakes/menu_items.h"

namespace korvanta::fuzz {
namespace {

using Texts = std::vector<std::string>;

std::string_view PlainField(FieldRole role) {
  switch (role) {
    case FieldRole::Text:
      return "Marlow";
    case FieldRole::Boolean:
      return "True";
    case FieldRole::Code:
      return kMessageKindCodes.front();
    default:
      return "2";
  }
}

/// Each message with something plain in its fields, without its terminator.
template <typename Table>
Texts PlainMessages(const Table& table) {
  Texts messages;
  for (const auto& row : table) {
    std::string& message = messages.emplace_back(row.tag);
    for (std::size_t i = 0; i < row.fields.size(); ++i) {
      message.append(i == 0 ? 0 : 1, kFieldSeparator).append(PlainField(row.fields[i]));
    }
  }
  return messages;
}

Texts MenuItems() {
  Texts names;
  for (const MenuItem* item : fakes::AllItems()) {
    names.emplace_back(item->name);
  }
  return names;
}

std::string WithBytes(std::string_view line) {
  std::string text;
  while (!line.empty()) {
    const bool is_byte = line.starts_with("\\x");
    text += is_byte ? static_cast<char>(std::stoi(std::string(line.substr(2, 2)), nullptr, 16))
                    : line.front();
    line.remove_prefix(is_byte ? 4 : 1);
  }
  return text;
}

/// The events for which a line stands.
Texts EventsOf(std::string_view line) {
  static const std::map<std::string_view, Texts> words = {
      {"<server message>", PlainMessages(kServerMessages)},
      {"<client message>", PlainMessages(kClientMessages)},
      {"<menu item>", MenuItems()}};
  for (const auto& [word, meanings] : words) {
    if (line.ends_with(word)) {
      Texts events;
      for (const std::string& meaning : meanings) {
        events.push_back(WithBytes(line.substr(0, line.size() - word.size())) + meaning);
      }
      return events;
    }
  }
  return {WithBytes(line)};
}

void Write(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  Check(file.good(), "a file can be written");
}

void WriteInputs(std::istream& text, const std::filesystem::path& folder) {
  std::string target, begin, whole;
  int number = 0;
  const auto write = [&](const std::string& input) {
    Write(folder / target / ("seed-" + std::to_string(++number)), input);
  };
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("= ")) {
      target = line.substr(2);
    } else if (line.empty()) {
      write(std::exchange(whole, {}));
      begin.clear();
    } else if (!line.starts_with('#')) {
      const bool is_indented = line.starts_with(' ');
      for (const std::string& event : EventsOf(line.substr(is_indented ? 1 : 0))) {
        const std::string written = event + std::string(Events::kEnd);
        whole += written;
        is_indented ? write(begin + written) : void(begin += written);
      }
    }
  }
  write(whole);
}

void WriteDictionary(const std::filesystem::path& path) {
  Texts words = MenuItems();
  for (const Texts& messages : {PlainMessages(kClientMessages), PlainMessages(kServerMessages)}) {
    for (const std::string& message : messages) {
      words.push_back(message.substr(0, message.find(']') + 1));
    }
  }
  for (const std::string_view code : kMessageKindCodes) {
    words.push_back(std::string(code) + "\\x01");
  }
  std::string text;
  for (const std::string& word : words) {
    text += '"' + word + "\"\n";
  }
  Write(path, text);
}

}  // namespace
}  // namespace korvanta::fuzz

int main(int count, char** words) {
  using namespace korvanta::fuzz;
  Check(count == 2, "usage: make_seeds FOLDER <fuzz/seeds.txt");
  const std::filesystem::path folder = words[1];
  WriteInputs(std::cin, folder);
  WriteDictionary(folder / "protocol.dict");
}

#include "fuzz/plain_reading.h"

#include <cstdlib>

#include "protocol/wire_format.h"

namespace korvanta::fuzz {
namespace {

/// The pieces between separators, written down in the plainest way.
std::vector<std::string> Pieces(std::string_view text, char separator) {
  std::vector<std::string> pieces(text.empty() ? 0 : 1);
  for (const char byte : text) {
    if (byte == separator) {
      pieces.emplace_back();
    } else {
      pieces.back() += byte;
    }
  }
  return pieces;
}

/// The number that a field as a whole is, read by other means than the client's.
std::optional<double> NumberOf(const std::string& field) {
  const char* const blanks = " \t\r\n";
  const std::size_t first = field.find_first_not_of(blanks);
  if (first == std::string::npos) {
    return std::nullopt;
  }
  const std::string number = field.substr(first, field.find_last_not_of(blanks) - first + 1);
  if (number.find_first_not_of("0123456789+-.eE") != std::string::npos) {
    return std::nullopt;
  }
  char* end = nullptr;
  const double value = std::strtod(number.c_str(), &end);
  return end == number.c_str() + number.size() ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<std::string_view> OnlyPayload(std::string_view block, std::string_view tag) {
  if (!block.starts_with(tag) || block.find(tag, 1) != std::string_view::npos) {
    return std::nullopt;
  }
  return block.substr(0, block.find(kMessageTerminator)).substr(tag.size());
}

std::vector<ListedPlayer> PlayersIn(std::string_view payload) {
  constexpr Colour kColours[] = {{192, 192, 0}, {128, 128, 128}, {192, 0, 192}, {0, 192, 0},
                                 {0, 0, 192},   {0, 192, 192},   {192, 0, 0},   {192, 64, 0}};
  std::vector<ListedPlayer> players;
  std::size_t position = 0;
  for (const std::string& record : Pieces(payload, kRecordSeparator)) {
    const std::vector<std::string> fields = Pieces(record, kFieldSeparator);
    if (!fields.empty()) {
      ListedPlayer& player = players.emplace_back(
          ListedPlayer{"O" + std::to_string(position), fields[0], "", kBlack, false});
      const auto category = fields.size() > 1 ? NumberOf(fields[1]) : std::nullopt;
      if (!category) {
        break;
      }
      if (*category >= 1 && *category <= 8 && *category == static_cast<int>(*category)) {
        player.colour = kColours[static_cast<std::size_t>(*category) - 1];
      }
      if (fields.size() < 3) {
        break;
      }
      player.level = fields[2];
      const auto mark = fields.size() > 3 ? NumberOf(fields[3]) : std::nullopt;
      if (!mark) {
        break;
      }
      player.marked = *mark == 1;
    }
    ++position;
  }
  return players;
}

std::vector<TeamListEntry> TeamsIn(std::string_view payload) {
  std::vector<TeamListEntry> teams;
  std::size_t position = 0;
  for (const std::string& record : Pieces(payload, kRecordSeparator)) {
    if (!record.empty()) {
      teams.push_back({"S" + std::to_string(position), record});
    }
    ++position;
  }
  return teams;
}

std::vector<std::string> TeamNamesIn(std::string_view payload) {
  std::vector<std::string> names = Pieces(payload, kFieldSeparator);
  std::erase(names, "");
  return names;
}

}  // namespace korvanta::fuzz

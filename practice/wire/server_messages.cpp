#include "practice/wire/server_messages.h"

#include <array>
#include <cstddef>

#include "protocol/wire_format.h"

namespace korvanta::practice::messages {
namespace {

/// By MessageKind.
constexpr std::array<std::string_view, 7> kKindCodes = {"cht", "ann", "adm", "blk",
                                                        "tel", "tem", "pln"};

/// The Boolean that ends a chat line; clients read it and do nothing with it.
constexpr std::string_view kLineFlag = "False";

std::string Line(MessageKind kind, std::string_view text) {
  return BuildMessage("[msg]", {kKindCodes.at(static_cast<std::size_t>(kind)), text, kLineFlag});
}

template <typename Texts>
std::string Join(const Texts& texts, char separator) {
  std::string joined;
  bool first = true;
  for (const auto& text : texts) {
    if (!first) {
      joined += separator;
    }
    joined += text;
    first = false;
  }
  return joined;
}

std::string AwardField(const Figures& figures) {
  std::vector<std::string> codes;
  for (int code : AwardCodes(figures)) {
    codes.push_back(std::to_string(code));
  }
  return Join(codes, kRecordSeparator);
}

}  // namespace

std::string LoginAccepted(std::string_view user_name, std::int16_t user_id) {
  return BuildMessage("[con]", {user_name, std::to_string(user_id)});
}

std::string Notice(std::string_view text) { return BuildMessage("[log]", {text}); }

std::string Statistics(const PlayerRecord& record) {
  const Figures& figures = record.figures;
  return BuildMessage("[bre]", {
                                   record.name,
                                   record.alliance,
                                   std::to_string(record.identification),
                                   std::to_string(figures.wins),
                                   std::to_string(figures.games_played),
                                   std::to_string(figures.research),
                                   std::to_string(figures.research_lost),
                                   std::to_string(figures.research_destroyed),
                                   std::to_string(figures.alliance_screw_overs),
                                   std::to_string(figures.score),
                                   std::to_string(figures.blocks),
                                   std::to_string(figures.alliance_wins),
                                   AwardField(figures),
                               });
}

std::string ChatLine(MessageKind kind, std::string_view speaker, std::string_view words) {
  return Line(kind, std::string(speaker) + ": " + std::string(words));
}

std::string StatusLine(std::string_view text) { return Line(MessageKind::Status, text); }

std::string Caption(std::string_view text) { return BuildMessage("[cap]", {text}); }

std::string Clock(std::int64_t seconds) { return BuildMessage("[tim]", {std::to_string(seconds)}); }

std::string Pause(std::int64_t seconds) { return BuildMessage("[end]", {std::to_string(seconds)}); }

std::string PlaySound(Sound sound) {
  return BuildMessage("[sou]", {std::to_string(static_cast<int>(sound))});
}

std::string Researched(int topic, int level) {
  return BuildMessage("[upg]", {std::to_string(topic), std::to_string(level)});
}

std::string Attacked(int topic, int level) {
  return BuildMessage("[att]", {std::to_string(topic), std::to_string(level)});
}

std::string ClearBoard() { return BuildMessage("[clr]", {}); }

std::string ClearTournamentBoard() { return BuildMessage("[clt]", {}); }

std::string ResearchPoints(std::int64_t points) {
  return BuildMessage("[poi]", {std::to_string(points)});
}

std::string News(std::string_view text) { return BuildMessage("[nws]", {text}); }

std::string OnlineList(std::span<const OnlineEntry> entries) {
  std::string records;
  for (const OnlineEntry& entry : entries) {
    if (!records.empty()) {
      records += kRecordSeparator;
    }
    records += entry.name;
    records += kFieldSeparator;
    records += std::to_string(static_cast<int>(entry.colour));
    records += kFieldSeparator;
    records += std::to_string(entry.level);
    records += kFieldSeparator;
    records += entry.is_marked ? '1' : '0';
  }
  return BuildMessage("[onl]", {records});
}

std::string TournamentInfo(const TournamentFigures& figures) {
  return BuildMessage("[tif]", {std::to_string(figures.entry_fee), std::to_string(figures.purse),
                                std::to_string(figures.teams), std::to_string(figures.players)});
}

std::string TeamList(std::span<const std::string> lines) {
  return BuildMessage("[ttm]", {Join(lines, kRecordSeparator)});
}

std::string TeamNames(std::span<const std::string_view> names) {
  return BuildMessage("[tdd]", {Join(names, kFieldSeparator)});
}

}  // namespace korvanta::practice::messages

#include "practice/wire/server_messages.h"

#include <cstddef>

#include "protocol/message_table.h"

namespace korvanta::practice::messages {
namespace {

/// The Boolean that ends a chat line; clients read it and do nothing with it.
constexpr std::string_view kLineFlag = "False";

std::string Line(MessageKind kind, std::string_view text) {
  return BuildMessage<ServerMessage::ChatLine>(kMessageKindCodes.at(static_cast<std::size_t>(kind)),
                                               text, kLineFlag);
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
  return BuildMessage<ServerMessage::LoginAccepted>(user_name, std::to_string(user_id));
}

std::string Notice(std::string_view text) { return BuildMessage<ServerMessage::LoginNotice>(text); }

std::string Statistics(const PlayerRecord& record) {
  const Figures& figures = record.figures;
  return BuildMessage<ServerMessage::Statistics>(
      record.name, record.alliance, std::to_string(record.identification),
      std::to_string(figures.wins), std::to_string(figures.games_played),
      std::to_string(figures.research), std::to_string(figures.research_lost),
      std::to_string(figures.research_destroyed), std::to_string(figures.alliance_screw_overs),
      std::to_string(figures.score), std::to_string(figures.blocks),
      std::to_string(figures.alliance_wins), AwardField(figures));
}

std::string ChatLine(MessageKind kind, std::string_view speaker, std::string_view words) {
  return Line(kind, std::string(speaker) + ": " + std::string(words));
}

std::string StatusLine(std::string_view text) { return Line(MessageKind::Status, text); }

std::string Caption(std::string_view text) { return BuildMessage<ServerMessage::Caption>(text); }

std::string Clock(std::int64_t seconds) {
  return BuildMessage<ServerMessage::GameClock>(std::to_string(seconds));
}

std::string Pause(std::int64_t seconds) {
  return BuildMessage<ServerMessage::GamePause>(std::to_string(seconds));
}

std::string PlaySound(Sound sound) {
  return BuildMessage<ServerMessage::Sound>(std::to_string(static_cast<int>(sound)));
}

std::string Researched(int topic, int level) {
  return BuildMessage<ServerMessage::TopicResearched>(std::to_string(topic), std::to_string(level));
}

std::string Attacked(int topic, int level) {
  return BuildMessage<ServerMessage::TopicAttacked>(std::to_string(topic), std::to_string(level));
}

std::string ClearBoard() { return BuildMessage<ServerMessage::BoardCleared>(); }

std::string ClearTournamentBoard() { return BuildMessage<ServerMessage::TournamentBoardCleared>(); }

std::string ResearchPoints(std::int64_t points) {
  return BuildMessage<ServerMessage::ResearchPoints>(std::to_string(points));
}

std::string News(std::string_view text) { return BuildMessage<ServerMessage::News>(text); }

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
  return BuildMessage(TagOf(ServerMessage::OnlineList), {records});
}

std::string TournamentInfo(const TournamentFigures& figures) {
  return BuildMessage<ServerMessage::TournamentInfo>(
      std::to_string(figures.entry_fee), std::to_string(figures.purse),
      std::to_string(figures.teams), std::to_string(figures.players));
}

std::string TeamList(std::span<const std::string> lines) {
  return BuildMessage(TagOf(ServerMessage::TeamList), {Join(lines, kRecordSeparator)});
}

std::string TeamNames(std::span<const std::string_view> names) {
  return BuildMessage(TagOf(ServerMessage::TeamNames), {Join(names, kFieldSeparator)});
}

}  // namespace korvanta::practice::messages

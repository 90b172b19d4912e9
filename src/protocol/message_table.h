/// The table of messages: every message of the protocol once, with its tag and its fields. The
/// catalogue, the dispatcher, the practice server and the fuzz targets take both from here.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "protocol/wire_format.h"

namespace korvanta {

/// What a client may send.
enum class ClientMessage : std::uint8_t {
  Login,
  Disconnect,
  KeepAlive,
  ChatLine,
  FormAlliance,
  AttackPlayer,
  LookUpStatistics,
  EnterGame,
  TopicInformation,
  ResearchTopic,
  RequestNews,
  RequestTournamentInfo,
  RequestTeamList,
  StartTournament,
  SetTournamentGame,
  EndTournament,
  JoinTeam,
  DisbandTeam,
  KickPlayer,
};

/// What a server may send, in the order in which a client tests for the tags.
enum class ServerMessage : std::uint8_t {
  LoginAccepted,
  LoginNotice,
  Caption,
  GameClock,
  Sound,
  Statistics,
  GamePause,
  TopicResearched,
  BoardCleared,
  TournamentBoardCleared,
  ResearchPoints,
  TopicAttacked,
  ChatLine,
  News,
  OnlineList,
  TournamentInfo,
  TeamList,
  TeamNames,
};

/// What a field holds. A receiver may still treat it as text.
enum class FieldRole : std::uint8_t {
  Text,
  Number,
  Integer,  ///< a number that is stored in 16 bits
  Boolean,
  Code,     ///< one of a few code words
  Numbers,  ///< a list of numbers with record separators between them
};

/// The roles of a message's fields, in order.
class FieldRoles {
 public:
  constexpr FieldRoles(std::initializer_list<FieldRole> roles) : size_(roles.size()) {
    std::copy(roles.begin(), roles.end(), roles_.begin());
  }

  constexpr std::size_t size() const { return size_; }
  constexpr FieldRole operator[](std::size_t index) const { return roles_[index]; }

 private:
  std::array<FieldRole, 13> roles_{};
  std::size_t size_;
};

/// How a payload is made up of its fields.
enum class Layout : std::uint8_t {
  Fields,               ///< each once; a single field is the whole payload
  FieldsAndEmptyField,  ///< likewise, followed by an empty field
  Repeated,             ///< its one field, any number of times
  Records,              ///< any number of records, each with each of the fields
  Ignored,              ///< never read; the tag stays in front of it
};

template <typename Message>
struct MessageRow {
  Message message;
  std::string_view tag;
  FieldRoles fields = {};
  Layout layout = Layout::Fields;
};

inline constexpr auto kClientMessages = [] {
  using enum ClientMessage;
  using enum FieldRole;
  return std::to_array<MessageRow<ClientMessage>>({
      {Login, "[con]", {Text, Text, Text}},
      {Disconnect, "[dis]"},
      {KeepAlive, "[p]"},
      {ChatLine, "[ctc]", {Text}},
      {FormAlliance, "[aly]", {Text}},
      {AttackPlayer, "[att]", {Text}},
      {LookUpStatistics, "[bre]", {Text}},
      {EnterGame, "[jon]"},
      {TopicInformation, "[inf]", {Integer}},
      {ResearchTopic, "[upg]", {Integer, Integer}, Layout::FieldsAndEmptyField},
      {RequestNews, "[nws]"},
      {RequestTournamentInfo, "[tif]"},
      {RequestTeamList, "[ttm]"},
      {StartTournament, "[tcr]", {Text, Text, Text}, Layout::FieldsAndEmptyField},
      {SetTournamentGame, "[tst]"},
      {EndTournament, "[ted]"},
      {JoinTeam, "[tjo]", {Text, Text}, Layout::FieldsAndEmptyField},
      {DisbandTeam, "[tdb]"},
      {KickPlayer, "[tkp]", {Text}},
  });
}();

inline constexpr auto kServerMessages = [] {
  using enum ServerMessage;
  using enum FieldRole;
  return std::to_array<MessageRow<ServerMessage>>({
      {LoginAccepted, "[con]", {Text, Integer}},
      {LoginNotice, "[log]", {Text}},
      {Caption, "[cap]", {Text}},
      {GameClock, "[tim]", {Integer}},
      {Sound, "[sou]", {Number}},
      {Statistics,
       "[bre]",
       {Text, Text, Number, Number, Number, Number, Number, Number, Number, Number, Number, Number,
        Numbers}},
      {GamePause, "[end]", {Integer}},
      {TopicResearched, "[upg]", {Integer, Integer}},
      {BoardCleared, "[clr]", {}, Layout::Ignored},
      {TournamentBoardCleared, "[clt]", {}, Layout::Ignored},
      {ResearchPoints, "[poi]", {Number}},
      {TopicAttacked, "[att]", {Integer, Integer}},
      {ChatLine, "[msg]", {Code, Text, Boolean}},
      {News, "[nws]", {Text}},
      {OnlineList, "[onl]", {Text, Number, Number, Number}, Layout::Records},
      {TournamentInfo, "[tif]", {Number, Number, Number, Text}},
      {TeamList, "[ttm]", {Text}, Layout::Records},
      {TeamNames, "[tdd]", {Text}, Layout::Repeated},
  });
}();

constexpr const MessageRow<ClientMessage>& RowOf(ClientMessage message) {
  return kClientMessages[static_cast<std::size_t>(message)];
}

constexpr const MessageRow<ServerMessage>& RowOf(ServerMessage message) {
  return kServerMessages[static_cast<std::size_t>(message)];
}

template <typename Message>
constexpr std::string_view TagOf(Message message) {
  return RowOf(message).tag;
}

static_assert(std::all_of(kClientMessages.begin(), kClientMessages.end(),
                          [](const auto& row) { return &row == &RowOf(row.message); }));
static_assert(std::all_of(kServerMessages.begin(), kServerMessages.end(), [](const auto& row) {
  return &row == &RowOf(row.message) && row.tag.size() == kTagLength;
}));

/// The row of `table` whose tag the message starts with; null if none has it.
template <typename Table>
const typename Table::value_type* FindRow(const Table& table, std::string_view message) {
  const auto row = std::find_if(table.begin(), table.end(), [&](const auto& candidate) {
    return message.starts_with(candidate.tag);
  });
  return row == table.end() ? nullptr : &*row;
}

/// A whole message from the texts of its fields, in order. The wrong number of fields does not
/// compile. Nothing is escaped.
template <auto message, typename... Fields>
std::string BuildMessage(const Fields&... fields) {
  constexpr const auto& row = RowOf(message);
  static_assert(row.layout != Layout::Repeated && row.layout != Layout::Records);
  static_assert(sizeof...(fields) == row.fields.size());
  if constexpr (row.layout == Layout::FieldsAndEmptyField) {
    return BuildMessage(row.tag, {fields..., std::string_view()});
  } else {
    return BuildMessage(row.tag, {fields...});
  }
}

}  // namespace korvanta

#include <algorithm>
#include <array>
#include <numeric>

#include "base/ascii_case.h"
#include "practice/trouble/mischief.h"
#include "protocol/message_table.h"

namespace korvanta::practice {

/// A message of a server taken apart, so that mischief can be made with what it consists of.
struct MischiefMessage {
  struct Field {
    std::string text;
    FieldRole role;
    char separator;  ///< in front of it, unless it is the first
  };

  std::string tag;
  std::vector<Field> fields{};
  bool is_ended = true;
  bool is_twice = false;
};

namespace {

using Field = MischiefMessage::Field;

MischiefMessage TakenApart(std::string_view message) {
  const auto* row = FindRow(kServerMessages, message);
  const std::size_t roles = row == nullptr ? 0 : row->fields.size();
  MischiefMessage apart{std::string(message.substr(0, kTagLength))};
  std::size_t index = 0;
  for (std::string_view record : Split(message.substr(apart.tag.size()), kRecordSeparator)) {
    index = roles > 0 && row->layout == Layout::Records ? 0 : index;
    char separator = kRecordSeparator;
    for (std::string_view field : Split(record, kFieldSeparator)) {
      // The last role is that of all fields that follow, too.
      const FieldRole role =
          roles > 0 ? row->fields[std::min(index++, roles - 1)] : FieldRole::Text;
      apart.fields.push_back({std::string(field), role, separator});
      separator = kFieldSeparator;
    }
  }
  return apart;
}

constexpr auto kForeignNumbers =
    Texts("", "nan", "inf", "-0", "1e400", "1e-9", "0x1F", "&H1F", "010", "99999999999", "32768",
          "-32769", "-1", "2.5", "1,000", "+7", "  7  ", "7abc", "--1", "\xd9\xa3\xd9\xa7", "\xb2",
          "\xa0\x37", "18446744073709551616", "True", "7\t", ".", "1.", "1e", "-", "7 7");

constexpr auto kMarkup =
    Texts("<b>", "</b></body></html>", "<img src='file:///etc/passwd'>",
          "<a href='http://korvanta.example/'>click</a>", "<table><tr><td>", "<!--",
          "&lt;&amp;&nbsp;&#0;", "http://korvanta.example/?a=b&c=d", "%s%n%1$p", "%1 %2 %L1",
          "\r\n", "\n\n\n", "\t", "\x0b\x0c", "\x1b[31m\x1b]0;title\x07", "\b\b\b", "\x7f", ":",
          "\"'`\\", "\xe2\x80\xae");

constexpr auto kFillers = Texts("x", "word ", "line\r\n", "<b>", "a:b ", "\t", " ", "\xe9");

constexpr std::size_t kGiant = std::size_t{256} * 1024;
constexpr std::size_t kMostGiant = std::size_t{2048} * 1024;

constexpr auto kTexts = {FieldRole::Text};
constexpr auto kNumbers = {FieldRole::Number, FieldRole::Integer, FieldRole::Numbers};

std::vector<Field*> FieldsOf(std::initializer_list<FieldRole> roles, MischiefMessage& message) {
  std::vector<Field*> chosen;
  for (Field& field : message.fields) {
    if (std::ranges::count(roles, field.role) > 0) {
      chosen.push_back(&field);
    }
  }
  return chosen;
}

void InsertAnywhere(std::string& text, std::string_view what, Dice& dice) {
  text.insert(dice.Below(text.size() + 1), what);
}

void DropFields(MischiefMessage& message, Dice& dice) {
  if (message.fields.empty()) {
    return;
  }
  const auto at =
      message.fields.begin() + static_cast<std::ptrdiff_t>(dice.Below(message.fields.size()));
  message.fields.erase(at, dice.OneIn(2) ? message.fields.end() : at + 1);
}

void ChangeNumbers(MischiefMessage& message, Dice& dice) {
  const std::vector<Field*> numbers = FieldsOf(kNumbers, message);
  if (numbers.empty()) {
    return;
  }
  const std::size_t certain = dice.Below(numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i == certain || dice.OneIn(3)) {
      numbers[i]->text = dice.Pick(kForeignNumbers);
    }
  }
}

void ChangeTag(MischiefMessage& message, Dice& dice) {
  std::string capitals = message.tag;
  std::ranges::transform(capitals, capitals.begin(), UpperCase);
  const std::string other(dice.Pick(kServerMessages).tag);
  const std::string short_tag = message.tag.substr(0, dice.Below(message.tag.size() + 1));
  // The fourth makes a payload that begins with a tag.
  const std::string tags[] = {capitals, "[zzz]",          short_tag, other + message.tag,
                              other,    " " + message.tag};
  message.tag = dice.Pick(tags);
}

void AddAllBytes(MischiefMessage& message, Dice& dice) {
  for (Field* field : FieldsOf(kTexts, message)) {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    if (!dice.OneIn(4)) {
      bytes.erase(0, 3);  // without what ends fields and messages
    }
    std::rotate(bytes.begin(),
                bytes.begin() + static_cast<std::ptrdiff_t>(dice.Below(bytes.size())), bytes.end());
    InsertAnywhere(field->text, bytes, dice);
  }
}

void MakeGiant(MischiefMessage& message, Dice& dice) {
  if (message.fields.empty()) {
    return;
  }
  Field& field = message.fields[dice.Below(message.fields.size())];
  const std::size_t size = kGiant + dice.Below(kMostGiant - kGiant);
  const std::string_view filler = dice.Pick(kFillers);
  std::string giant;
  while (giant.size() < size) {
    giant += filler;
  }
  InsertAnywhere(field.text, giant, dice);
}

void AddMarkup(MischiefMessage& message, Dice& dice) {
  for (Field* field : FieldsOf(kTexts, message)) {
    InsertAnywhere(field->text, dice.Pick(kMarkup), dice);
    InsertAnywhere(field->text, dice.Pick(kMarkup), dice);
  }
}

constexpr auto kTable = [] {
  using enum Fate;
  return std::to_array<MischiefKind>({
      {"cut", "messages are cut at any byte, and the pieces arrive one after another", 2, nullptr,
       Cut},
      {"drop", "fields are left out", 3, DropFields},
      {"numbers", "numbers are odd: nan, 1e400, -0, 0x1F, nothing at all", 3, ChangeNumbers},
      {"tags", "tags are unknown, in capitals, cut short, doubled or another message's", 3,
       ChangeTag},
      {"bytes", "every byte value stands in each text", 2, AddAllBytes},
      {"giant", "one field grows to as much as two megabytes", 12, MakeGiant},
      {"markup", "markup and control characters stand in each text", 1, AddMarkup},
      {"unended", "terminators are missing", 3,
       [](auto& message, Dice&) { message.is_ended = false; }},
      {"twice", "messages come twice", 3, [](auto& message, Dice&) { message.is_twice = true; }},
      {"shuffle", "messages come in another order", 3, nullptr, Shuffle},
      {"silence", "connections are accepted, and nothing is ever said", 2, nullptr, Silence},
      {"reset-accept", "connections are reset as soon as they are accepted", 2, nullptr,
       ResetAccept},
      {"reset-handshake", "connections are reset in answer to the login", 2, nullptr,
       ResetHandshake},
      {"reset-message", "connections are reset in the middle of a message", 2, nullptr,
       ResetMessage},
      {"reset-login", "connections are reset right after the login", 2, nullptr, ResetLogin},
      {"reset-game", "connections are reset in the middle of a game", 2, nullptr, ResetGame},
  });
}();

}  // namespace

std::span<const MischiefKind> MischiefTable() { return kTable; }

std::string Changed(std::string_view message, const MischiefKind& kind, Dice& dice) {
  if (kind.change == nullptr) {
    return std::string(message) + kMessageTerminator;
  }
  MischiefMessage apart = TakenApart(message);
  kind.change(apart, dice);
  std::string once = apart.tag;
  for (const Field& field : apart.fields) {
    if (&field != &apart.fields.front()) {
      once += field.separator;
    }
    once += field.text;
  }
  if (apart.is_ended) {
    once += kMessageTerminator;
  }
  return apart.is_twice ? once + once : once;
}

std::optional<MischiefKinds> ReadMischiefKinds(std::string_view names) {
  MischiefKinds kinds;
  if (names == "all") {
    std::ranges::transform(kTable, std::inserter(kinds, kinds.end()),
                           [](auto& kind) { return &kind; });
    return kinds;
  }
  for (std::string_view name : Split(names, ',')) {
    const auto* kind = std::ranges::find(kTable, name, &MischiefKind::name);
    if (kind == kTable.end()) {
      return std::nullopt;
    }
    kinds.insert(&*kind);
  }
  return names.empty() ? std::nullopt : std::optional(kinds);
}

}  // namespace korvanta::practice

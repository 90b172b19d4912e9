#include "practice/trouble/mischief_message.h"

#include <algorithm>
#include <array>

#include "protocol/message_table.h"

namespace korvanta::practice {
namespace {

/// The last field stands for all that follow.
FieldRole RoleAt(const MessageRow<ServerMessage>* row, std::size_t index) {
  return row == nullptr || row->fields.size() == 0
             ? FieldRole::Text
             : row->fields[std::min(index, row->fields.size() - 1)];
}

}  // namespace

MischiefMessage::MischiefMessage(std::string_view message) : tag(message.substr(0, kTagLength)) {
  constexpr std::array<char, 2> kSeparators = {kFieldSeparator, kRecordSeparator};
  const auto* row = FindRow(kServerMessages, message);
  const bool has_records = row != nullptr && row->layout == Layout::Records;
  std::string_view payload = message.substr(tag.size());
  if (payload.empty()) {
    return;
  }
  std::size_t index = 0;
  for (char separator = kFieldSeparator;;) {
    const std::size_t end = payload.find_first_of({kSeparators.data(), kSeparators.size()});
    fields.push_back({std::string(payload.substr(0, end)), RoleAt(row, index), separator});
    if (end == std::string_view::npos) {
      return;
    }
    separator = payload[end];
    index = separator == kRecordSeparator && has_records ? 0 : index + 1;
    payload.remove_prefix(end + 1);
  }
}

std::string MischiefMessage::Built() const {
  std::string once = tag;
  for (const Field& field : fields) {
    if (&field != &fields.front()) {
      once += field.separator;
    }
    once += field.text;
  }
  if (is_ended) {
    once += kMessageTerminator;
  }
  std::string built;
  for (int i = 0; i < times; ++i) {
    built += once;
  }
  return built;
}

}  // namespace korvanta::practice

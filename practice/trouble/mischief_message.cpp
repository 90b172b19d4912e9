#include "practice/trouble/mischief_message.h"

#include <algorithm>
#include <array>

#include "protocol/wire_format.h"

namespace korvanta::practice {
namespace {

using Role = MischiefMessage::Role;

constexpr auto kLayouts = std::to_array<MessageLayout>({
    {"[con]", "tn"},
    {"[log]", "t"},
    {"[cap]", "t"},
    {"[tim]", "n", false, true},
    {"[sou]", "n"},
    {"[bre]", "ttn"},
    {"[end]", "n"},
    {"[upg]", "n", false, true},
    {"[clr]", "t"},
    {"[clt]", "t"},
    {"[poi]", "n", false, true},
    {"[att]", "n", false, true},
    {"[msg]", "ctc"},
    {"[nws]", "t"},
    {"[onl]", "tn", true},
    {"[tif]", "n"},
    {"[ttm]", "t", true},
    {"[tdd]", "t"},
});

Role RoleAt(const MessageLayout& layout, std::size_t index) {
  switch (layout.fields[std::min(index, layout.fields.size() - 1)]) {
    case 'n':
      return Role::Number;
    case 'c':
      return Role::Code;
    default:
      return Role::Text;
  }
}

}  // namespace

std::span<const MessageLayout> MessageLayouts() { return kLayouts; }

const MessageLayout* LayoutOf(std::string_view message) {
  const auto found =
      std::find_if(kLayouts.begin(), kLayouts.end(),
                   [&](const MessageLayout& layout) { return message.starts_with(layout.tag); });
  return found == kLayouts.end() ? nullptr : &*found;
}

MischiefMessage::MischiefMessage(std::string_view message) : tag(message.substr(0, kTagLength)) {
  constexpr std::array<char, 2> kSeparators = {kFieldSeparator, kRecordSeparator};
  static constexpr MessageLayout kUnknown{"", "t"};
  const MessageLayout* known = LayoutOf(message);
  const MessageLayout& layout = known == nullptr ? kUnknown : *known;
  std::string_view payload = message.substr(tag.size());
  if (payload.empty()) {
    return;
  }
  std::size_t index = 0;
  for (char separator = kFieldSeparator;;) {
    const std::size_t end = payload.find_first_of({kSeparators.data(), kSeparators.size()});
    fields.push_back({std::string(payload.substr(0, end)), RoleAt(layout, index), separator});
    if (end == std::string_view::npos) {
      return;
    }
    separator = payload[end];
    index = separator == kRecordSeparator && layout.has_records ? 0 : index + 1;
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

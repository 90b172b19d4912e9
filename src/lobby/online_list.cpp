#include "lobby/online_list.h"

#include <array>

#include "base/change_notice.h"
#include "protocol/field_reading.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

/// Category n has entry n - 1.
constexpr std::array<Colour, 8> kCategoryColours = {{
    {192, 192, 0},
    {128, 128, 128},
    {192, 0, 192},
    {0, 192, 0},
    {0, 0, 192},
    {0, 192, 192},
    {192, 0, 0},
    {192, 64, 0},
}};

}  // namespace

Colour OnlineColour(std::string_view category) {
  const Colour* colour = NumberedEntry(kCategoryColours, ReadNumber(category));
  return colour != nullptr ? *colour : kBlack;
}

void OnlineList::ShowOnlineList(std::string_view payload) {
  payload_ = payload;
  entries_.clear();
  selected_.reset();
  try {
    Rebuild();
  } catch (...) {
    Notify(on_changed);
    throw;
  }
  Notify(on_changed);
}

void OnlineList::Rebuild() {
  for (std::string_view record : Split(payload_, kRecordSeparator)) {
    if (!record.empty()) {
      FieldReader fields(record);
      Entry& entry = entries_.emplace_back(Entry{fields.Next(), kBlack, {}});
      entry.colour = OnlineColour(fields.Next());
      entry.level = fields.Next();
      entry.marked = ReadNumber(fields.Next()) == 1;
    }
  }
}

}  // namespace korvanta

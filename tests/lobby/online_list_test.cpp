#include "lobby/online_list.h"

#include <gmock/gmock.h>

#include "protocol/field_reading.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Entries as "key name r,g,b level mark".
std::vector<std::string> Shown(const OnlineList& list) {
  std::vector<std::string> lines;
  for (const OnlineList::Entry& entry : list.entries()) {
    lines.push_back(entry.Key() + " " + std::string(entry.name) + " " +
                    std::to_string(entry.colour.red) + "," + std::to_string(entry.colour.green) +
                    "," + std::to_string(entry.colour.blue) + " " + std::string(entry.level) +
                    (entry.marked ? " *" : ""));
  }
  return lines;
}

TEST(OnlineList, ShowsEveryRecordAndSkipsEmptyOnes) {
  OnlineList list;
  list.ShowOnlineList("Ann\0014\00112\0011\002\002Bob\0019\001any text\0010\002C\0017\001\0011.0");
  EXPECT_THAT(Shown(list),
              ElementsAre("O0 Ann 0,192,0 12 *", "O2 Bob 0,0,0 any text", "O3 C 192,0,0  *"));
  list.ShowOnlineList("");
  EXPECT_THAT(Shown(list), IsEmpty());
}

TEST(OnlineList, ABrokenRecordKeepsWhatWasBuilt) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"Bob", "O1 Bob 0,0,0 "},
      {"Bob\001x", "O1 Bob 0,0,0 "},
      {"Bob\0017", "O1 Bob 192,0,0 "},
      {"Bob\0017\0015", "O1 Bob 192,0,0 5"},
      {"Bob\0017\0015\001", "O1 Bob 192,0,0 5"},
  };
  for (const auto& [record, kept] : cases) {
    OnlineList list;
    int changes = 0;
    list.on_changed = [&] { ++changes; };
    list.ShowOnlineList("Old\0011\0011\0010");
    const std::string payload =
        "Ann\0011\0011\0010\002" + std::string(record) + "\002Cid\0011\0011\0010";
    EXPECT_THROW(list.ShowOnlineList(payload), MessageError) << record;
    EXPECT_THAT(Shown(list), ElementsAre("O0 Ann 192,192,0 1", kept)) << record;
    EXPECT_EQ(changes, 2) << record;
  }
}

TEST(OnlineColour, FollowsTheCategoryAsANumber) {
  const std::pair<std::string_view, Colour> cases[] = {
      {"1", {192, 192, 0}},    {"2", {128, 128, 128}}, {"3", {192, 0, 192}}, {"4", {0, 192, 0}},
      {"5", {0, 0, 192}},      {"6", {0, 192, 192}},   {"7", {192, 0, 0}},   {"8", {192, 64, 0}},
      {" 8.0 ", {192, 64, 0}}, {"9", kBlack},          {"0", kBlack},        {"-1", kBlack},
      {"1.5", kBlack},
  };
  for (const auto& [category, colour] : cases) {
    EXPECT_EQ(OnlineColour(category), colour) << category;
  }
  EXPECT_THROW(OnlineColour("red"), MessageError);
  EXPECT_THROW(OnlineColour(""), MessageError);
}

}  // namespace
}  // namespace korvanta

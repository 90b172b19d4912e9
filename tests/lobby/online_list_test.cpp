#include "lobby/online_list.h"

#include <gtest/gtest.h>

#include "protocol/field_reading.h"

namespace korvanta {
namespace {

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

TEST(OnlineList, ShowsEveryRecordUpToABrokenOneAndSkipsEmptyOnes) {
  const std::string ann = "Ann\0014\00112\0011";
  const struct {
    std::string payload;
    bool broken;
    std::vector<std::string> shown;
  } cases[] = {
      {ann + "\002\002Bob\0019\001any text\0010\002C\0017\001\0011.0",
       false,
       {"O0 Ann 0,192,0 12 *", "O2 Bob 0,0,0 any text", "O3 C 192,0,0  *"}},
      {"", false, {}},
      {"Bob\002" + ann, true, {"O0 Bob 0,0,0 "}},
      {ann + "\002Bob\001x\0015\0011\002" + ann, true, {"O0 Ann 0,192,0 12 *", "O1 Bob 0,0,0 "}},
      {"Bob\0017\002" + ann, true, {"O0 Bob 192,0,0 "}},
      {"Bob\0017\0015\001\002" + ann, true, {"O0 Bob 192,0,0 5"}},
  };
  for (const auto& [payload, broken, shown] : cases) {
    OnlineList list;
    list.ShowOnlineList(ann);
    list.Select(0);
    int changes = 0;
    list.on_changed = [&] { ++changes; };
    if (broken) {
      EXPECT_THROW(list.ShowOnlineList(payload), MessageError) << payload;
    } else {
      list.ShowOnlineList(payload);
    }
    EXPECT_EQ(Shown(list), shown) << payload;
    EXPECT_FALSE(list.selected());
    EXPECT_EQ(changes, 1);
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
}

}  // namespace
}  // namespace korvanta

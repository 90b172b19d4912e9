#include "protocol/message_catalogue.h"

#include <gtest/gtest.h>
#include <tuple>

#include "protocol/message_table.h"

namespace korvanta {
namespace {

/// The tests of what sends the other messages hold their forms.
TEST(Catalogue, NothingIsEscaped) {
  EXPECT_EQ(outbound::ChatLine(std::string("a\0b\001c\002\xff", 7)),
            std::string("[ctc]a\0b\001c\002\xff\0", 13));
  EXPECT_EQ(outbound::KeepAlive(), std::string("[p]\0", 4));
}

/// Letters of the field roles, in their order.
std::string Letters(const FieldRoles& roles) {
  std::string letters;
  for (std::size_t i = 0; i < roles.size(); ++i) {
    letters += "tnibcl"[static_cast<std::size_t>(roles[i])];
  }
  return letters;
}

TEST(MessageTable, HasTheServersMessagesInTestOrder) {
  using enum Layout;
  const std::tuple<std::string_view, std::string_view, Layout> messages[] = {
      {"[con]", "ti", Fields},   {"[log]", "t", Fields},  {"[cap]", "t", Fields},
      {"[tim]", "i", Fields},    {"[sou]", "n", Fields},  {"[bre]", "ttnnnnnnnnnnl", Fields},
      {"[end]", "i", Fields},    {"[upg]", "ii", Fields}, {"[clr]", "", Ignored},
      {"[clt]", "", Ignored},    {"[poi]", "n", Fields},  {"[att]", "ii", Fields},
      {"[msg]", "ctb", Fields},  {"[nws]", "t", Fields},  {"[onl]", "tnnn", Records},
      {"[tif]", "nnnn", Fields}, {"[ttm]", "t", Records}, {"[tdd]", "t", Repeated},
  };
  ASSERT_EQ(std::size(messages), kServerMessages.size());
  for (std::size_t i = 0; i < kServerMessages.size(); ++i) {
    const auto& row = kServerMessages[i];
    EXPECT_EQ(std::tuple(row.tag, Letters(row.fields), row.layout), messages[i]) << i;
  }
}

}  // namespace
}  // namespace korvanta

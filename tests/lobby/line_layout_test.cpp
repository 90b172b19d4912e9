#include "lobby/line_layout.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace korvanta {
namespace {

/// Every byte is 1 wide but these.
Advances TestAdvances() {
  Advances advances;
  advances.fill(1);
  advances['m'] = 2.5F;
  advances['\t'] = 4;
  return advances;
}

TEST(WrapRow, EndsWhereItShould) {
  const std::tuple<const char*, std::string, Row> cases[] = {
      {"empty text", "", {0, 0, 0}},
      {"fits exactly", "abcde", {0, 5, 5}},
      {"pair of break bytes", "ab\r\ncd", {0, 2, 4}},
      {"lone breaks", "ab\r\rcd", {0, 2, 3}},
      {"line feed first", "\n\r\n", {0, 0, 1}},
      {"behind the last space", "ab cdef", {0, 3, 3}},
      {"space that fits", "abcd ef", {0, 5, 5}},
      {"space that hangs over", "abcde fg", {0, 6, 6}},
      {"only one space hangs over", "abcde  f", {0, 6, 6}},
      {"break behind a hanging space", "abcde \r\nf", {0, 6, 8}},
      {"text ends with a hanging space", "abcde ", {0, 6, 6}},
      {"long word", "abcdefgh", {0, 5, 5}},
      {"wide bytes", "ammm", {0, 2, 2}},
      {"full row before a break", "abcde\r\n", {0, 5, 7}},
      {"tab", "a\tbc", {0, 2, 2}},
  };
  for (const auto& [name, text, row] : cases) {
    EXPECT_EQ(WrapRow(text, TestAdvances(), 5), row) << name;
  }
  EXPECT_EQ(WrapRow("mm", TestAdvances(), 1), (Row{0, 1, 1})) << "a byte wider than the row";
  EXPECT_EQ(WrapRow("m\r\n", TestAdvances(), 1), (Row{0, 1, 3})) << "no empty row behind it";
}

TEST(TextRows, AgreeWithWrappingEverything) {
  std::mt19937 random(7);
  const Advances advances = TestAdvances();
  for (int round = 0; round < 300; ++round) {
    ColouredText text(1 + random() % 9);
    std::string bytes(random() % 120, 'x');
    for (char& byte : bytes) {
      byte = "abcm  \t\r\n"[random() % (round % 3 == 0 ? 4 : 9)];
    }
    // Every third text is one long word, far longer than what is read at a time.
    for (int doubling = 0; round % 30 == 0 && doubling < 9; ++doubling) {
      bytes += bytes;
    }
    text.Insert(0, bytes, ColourRole::Black);
    const float width = static_cast<float>(random() % 12);
    TextRows rows(text, advances);
    rows.SetWidth(width);

    std::vector<Row> all;
    for (std::size_t at = 0;;) {
      const Row row = WrapRow(std::string_view(bytes).substr(at), advances, width);
      all.push_back({at, at + row.end, at + row.next});
      at = all.back().next;
      if (at == bytes.size() && !all.back().EndsLine()) {
        break;
      }
    }
    for (int probe = 0; probe < 20; ++probe) {
      const std::size_t index = random() % all.size();
      const Row& row = all[index];
      ASSERT_EQ(rows.At(row.start), row);
      ASSERT_EQ(rows.IsLast(row), index + 1 == all.size());
      ASSERT_EQ(rows.StartOf(row.start), row.start);
      ASSERT_EQ(rows.StartOf((row.start + row.end) / 2), row.start);
      const std::size_t steps = random() % 30;
      ASSERT_EQ(rows.Up(row.start, steps), all[index - std::min(index, steps)].start);
      ASSERT_EQ(rows.Down(row.start, steps), all[std::min(index + steps, all.size() - 1)].start);
    }
  }
}

}  // namespace
}  // namespace korvanta

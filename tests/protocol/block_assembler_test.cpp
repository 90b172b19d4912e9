#include "protocol/block_assembler.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvanta {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kSegment = BlockAssembler::kSmallestSegment;
constexpr std::size_t kBlockLimit = BlockAssembler::kBlockLimit;
constexpr std::size_t kRemainderLimit = BlockAssembler::kRemainderLimit;

std::vector<std::string> TakeAll(BlockAssembler& blocks, BlockAssembler::Time now) {
  std::vector<std::string> taken;
  for (std::string block; !(block = blocks.Take(now, false)).empty();) {
    taken.push_back(block);
  }
  return taken;
}

/// A bar stands for a terminator.
std::string Text(std::string_view text_with_bars) {
  std::string text(text_with_bars);
  std::replace(text.begin(), text.end(), '|', '\0');
  return text;
}

/// The text behind so many other bytes that they are long enough to have been cut.
std::string Long(std::string_view text_with_bars) {
  return std::string(kSegment, 'x') + Text(text_with_bars);
}

/// A message of that many bytes.
std::string MessageOf(std::size_t size) { return std::string(size - 1, 'x') + '\0'; }

TEST(BlockAssembler, WhatArrivesAtOnceIsABlockUnlessItMayHaveBeenCut) {
  const std::string almost_long(kSegment - 1, 'x');
  const struct {
    const char* what;
    std::vector<std::string> arrivals;
    std::vector<std::string> blocks;
  } cases[] = {
      {"a short remainder keeps nothing", {"[a]5", Text("[a]6|")}, {"[a]5", Text("[a]6|")}},
      {"nor one behind messages", {Text("[a]|[b]9"), Text("|")}, {Text("[a]|[b]9"), Text("|")}},
      {"the longest short one", {almost_long, Text("|")}, {almost_long, Text("|")}},
      {"the shortest long one", {almost_long + "y", Text("z|")}, {almost_long + Text("yz|")}},
      {"a long remainder waits", {Long("|[b]"), Text("1|")}, {Long("|"), Text("[b]1|")}},
      {"and for more than one",
       {Long("|[b]"), Long(""), Text("1|")},
       {Long("|"), "[b]" + Long("1|")}},
      {"but what ends it keeps nothing",
       {Long("[b]"), Text("1|[c]"), Text("2|")},
       {Long("[b]1|[c]"), Text("2|")}},
      {"nor does what goes on and is short",
       {Long("[b]"), "1", Text("2|")},
       {Long("[b]1"), Text("2|")}},
      {"an arrival that the caller cut goes on",
       {std::string(kBlockLimit, 'x'), "yz", Text("|")},
       {std::string(kBlockLimit, 'x') + Text("yz|")}},
  };
  for (const auto& c : cases) {
    BlockAssembler assembler;
    BlockAssembler::Time now{1h};
    std::vector<std::string> blocks;
    for (const std::string& bytes : c.arrivals) {
      assembler.Add(bytes, now);
      std::ranges::move(TakeAll(assembler, now), std::back_inserter(blocks));
      now += BlockAssembler::kRemainderWait - 1ms;
    }
    EXPECT_EQ(blocks, c.blocks) << c.what;
  }
}

TEST(BlockAssembler, ARemainderIsDueAfterItsWaitOrAtTheEndAndNotBefore) {
  BlockAssembler blocks;
  const BlockAssembler::Time start{1h};
  blocks.Add(Long("[b]"), start);
  blocks.Add(Long(""), start + 200ms);
  EXPECT_EQ(blocks.RemainderDeadline(), start + 450ms);
  EXPECT_EQ(blocks.Take(start + 449ms, false), "");
  EXPECT_EQ(blocks.Take(start + 450ms, false), Long("[b]") + Long(""));
  EXPECT_EQ(blocks.RemainderDeadline(), std::nullopt);
  blocks.Add(Long("|[b]2"), start + 450ms);
  EXPECT_EQ(blocks.Take(start + 450ms, true), Long("|[b]2"));
}

TEST(BlockAssembler, LongBlocksAreCutBetweenMessagesAndLongMessagesAtTheRemainderLimit) {
  std::string messages;
  for (int i = 0; i < 200; ++i) {
    messages += MessageOf(1000);
  }
  const std::pair<std::string, std::vector<std::size_t>> cases[] = {
      {messages + "rest", {65'000, 65'000, 65'000, 5'000}},
      {MessageOf(kBlockLimit) + MessageOf(4), {kBlockLimit, 4}},
      {MessageOf(4) + MessageOf(kBlockLimit - 3), {4, kBlockLimit - 3}},
      {MessageOf(kBlockLimit + 1) + MessageOf(4), {kBlockLimit + 1, 4}},
      {MessageOf(kRemainderLimit) + MessageOf(4), {kRemainderLimit, 4}},
      {MessageOf(kRemainderLimit + 1) + MessageOf(4), {kRemainderLimit, 5}},
      {std::string(2 * kRemainderLimit + 5, 'x'), {kRemainderLimit, kRemainderLimit}}};
  for (const auto& [bytes, lengths] : cases) {
    BlockAssembler assembler;
    assembler.Add(bytes, {});
    std::vector<std::size_t> cut;
    for (const std::string& block : TakeAll(assembler, {})) {
      cut.push_back(block.size());
    }
    EXPECT_EQ(cut, lengths) << bytes.size();
  }
}

}  // namespace
}  // namespace korvanta

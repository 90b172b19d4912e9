#include "protocol/block_assembler.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr std::size_t kSegment = BlockAssembler::kSmallestSegment;
constexpr std::size_t kBlockLimit = BlockAssembler::kBlockLimit;
constexpr std::size_t kRestLimit = BlockAssembler::kRestLimit;

/// A stream with a clock of its own.
struct Stream {
  void Add(std::string_view bytes) { blocks.Add(bytes, now); }

  std::vector<std::string> Take(bool at_end = false) {
    std::vector<std::string> taken;
    for (std::string block = blocks.Take(now, at_end); !block.empty();
         block = blocks.Take(now, at_end)) {
      taken.push_back(block);
    }
    return taken;
  }

  std::vector<std::size_t> TakeLengths() {
    std::vector<std::size_t> lengths;
    for (const std::string& block : Take()) {
      lengths.push_back(block.size());
    }
    return lengths;
  }

  BlockAssembler blocks;
  BlockAssembler::Time now{1h};
};

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

TEST(BlockAssembler, WhatArrivesAtOnceIsABlockUnlessItMayHaveBeenCut) {
  const std::string almost_long(kSegment - 1, 'x');
  const struct {
    const char* what;
    std::vector<std::string> arrivals;
    std::vector<std::string> blocks;
  } cases[] = {
      {"a short rest keeps nothing", {"[a]5", Text("[a]6|")}, {"[a]5", Text("[a]6|")}},
      {"messages and a short rest", {Text("[a]|[b]9"), Text("|")}, {Text("[a]|[b]9"), Text("|")}},
      {"the longest short one", {almost_long, Text("|")}, {almost_long, Text("|")}},
      {"the shortest long one", {almost_long + "y", Text("z|")}, {almost_long + Text("yz|")}},
      {"a long rest waits", {Long("|[b]"), Text("1|")}, {Long("|"), Text("[b]1|")}},
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
    Stream stream;
    std::vector<std::string> blocks;
    for (const std::string& bytes : c.arrivals) {
      stream.Add(bytes);
      std::ranges::move(stream.Take(), std::back_inserter(blocks));
      stream.now += BlockAssembler::kRestWait - 1ms;
    }
    EXPECT_THAT(blocks, ElementsAreArray(c.blocks)) << c.what;
  }
}

TEST(BlockAssembler, RestIsGivenUpAfterItsWaitAndNotBefore) {
  Stream stream;
  stream.Add(Long("[b]"));
  stream.now += 200ms;
  stream.Add(Long(""));
  EXPECT_EQ(stream.blocks.RestDeadline(), stream.now + 250ms);
  stream.now += 249ms;
  EXPECT_THAT(stream.Take(), ElementsAre());
  stream.now += 1ms;
  EXPECT_THAT(stream.Take(), ElementsAre(Long("[b]") + Long("")));
  EXPECT_EQ(stream.blocks.RestDeadline(), std::nullopt);
}

TEST(BlockAssembler, AtTheEndEverythingIsOneBlock) {
  Stream stream;
  stream.Add(Long("|[b]2"));
  EXPECT_THAT(stream.Take(true), ElementsAre(Long("|[b]2")));
  EXPECT_THAT(stream.Take(true), ElementsAre());
}

TEST(BlockAssembler, LongBlocksAreCutBetweenMessagesAtTheBlockLimit) {
  const std::string message = std::string(999, 'x') + '\0';
  Stream stream;
  for (int i = 0; i < 200; ++i) {
    stream.Add(message);
  }
  stream.Add("rest");
  EXPECT_THAT(stream.TakeLengths(), ElementsAre(65'000, 65'000, 65'000, 5'004));
}

TEST(BlockAssembler, LongMessagesStayWholeUpToTheRestLimit) {
  const std::pair<std::size_t, std::vector<std::size_t>> cases[] = {
      {kBlockLimit, {kBlockLimit, 4}},
      {kBlockLimit + 1, {kBlockLimit + 1, 4}},
      {kRestLimit, {kRestLimit, 4}},
      {kRestLimit + 1, {kRestLimit, 5}}};
  for (const auto& [length, blocks] : cases) {
    Stream stream;
    stream.Add(std::string(length - 1, 'x') + '\0' + Text("[a]|"));
    EXPECT_EQ(stream.TakeLengths(), blocks) << length;
  }
}

TEST(BlockAssembler, EndlessRestIsHandedOutAtItsLimit) {
  Stream stream;
  std::vector<std::size_t> lengths;
  const std::string slice(kBlockLimit, 'x');
  for (int i = 0; i < 40; ++i) {
    stream.Add(slice);
    std::ranges::copy(stream.TakeLengths(), std::back_inserter(lengths));
  }
  EXPECT_THAT(lengths, ElementsAre(kRestLimit, kRestLimit));
}

}  // namespace
}  // namespace korvanta

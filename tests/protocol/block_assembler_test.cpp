#include "protocol/block_assembler.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace korvanta {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kBlockLimit = BlockAssembler::kBlockLimit;
constexpr std::size_t kRemainderLimit = BlockAssembler::kRemainderLimit;

/// As long as what may have been cut.
const std::string kSegment(BlockAssembler::kSmallestSegment, 'x');

/// A message of that many bytes. In all texts a bar stands for a terminator.
std::string Message(std::size_t size) { return std::string(size - 1, 'x') + '|'; }

TEST(BlockAssembler, WhatArrivesAtOnceIsABlockUnlessItMayHaveBeenCutOrIsLong) {
  const std::string almost_segment = kSegment.substr(1);
  const std::string longest = Message(kBlockLimit);
  const std::string limit(kRemainderLimit, 'x');
  std::string messages;
  for (int i = 0; i < 65; ++i) {
    messages += Message(1000);
  }
  const struct {
    const char* what;
    std::vector<std::string> arrivals;
    std::string blocks;  // a slash behind each
  } cases[] = {
      {"a short remainder keeps nothing", {"[a]5", "[a]6|"}, "[a]5/[a]6|/"},
      {"nor one behind messages", {"[a]|[b]9", "|"}, "[a]|[b]9/|/"},
      {"the longest short one", {almost_segment, "|"}, almost_segment + "/|/"},
      {"the shortest long one", {kSegment, "z|"}, kSegment + "z|/"},
      {"a long remainder waits", {kSegment + "|[b]", "1|"}, kSegment + "|/[b]1|/"},
      {"and for more than one",
       {kSegment + "[b]", kSegment, "1|"},
       kSegment + "[b]" + kSegment + "1|/"},
      {"what ends it keeps nothing", {kSegment, "1|[c]", "2|"}, kSegment + "1|[c]/2|/"},
      {"nor does what goes on and is short", {kSegment, "1", "2|"}, kSegment + "1/2|/"},
      {"the caller's cut goes on",
       {limit.substr(0, kBlockLimit), "yz", "|"},
       limit.substr(0, kBlockLimit) + "yz|/"},
      {"a cut between messages", {messages + messages + "rest"}, messages + "/" + messages + "/"},
      {"the longest block", {longest + "|"}, longest + "/|/"},
      {"one byte more", {"|" + longest}, "|/" + longest + "/"},
      {"a longer message", {"x" + longest + "|"}, "x" + longest + "/|/"},
      {"the longest message", {Message(kRemainderLimit) + "|"}, Message(kRemainderLimit) + "/|/"},
      {"one byte more", {limit + "||"}, limit + "/||/"},
      {"no end of a message", {limit + limit + "rest"}, limit + "/" + limit + "/"},
  };
  for (auto [what, arrivals, blocks] : cases) {
    BlockAssembler assembler;
    BlockAssembler::Time now{1h};
    std::string taken;
    for (std::string& bytes : arrivals) {
      std::ranges::replace(bytes, '|', '\0');
      assembler.Add(bytes, now);
      for (std::string block; !(block = assembler.Take(now, false)).empty();) {
        taken += block + '/';
      }
      now += BlockAssembler::kRemainderWait - 1ms;
    }
    std::ranges::replace(taken, '\0', '|');
    EXPECT_TRUE(taken == blocks) << what;
  }
}

TEST(BlockAssembler, ARemainderIsDueAfterItsWaitOrAtTheEndAndNotBefore) {
  BlockAssembler blocks;
  const BlockAssembler::Time start{1h};
  blocks.Add(kSegment, start);
  blocks.Add(kSegment, start + 200ms);
  EXPECT_EQ(blocks.RemainderDeadline(), start + 450ms);
  EXPECT_EQ(blocks.Take(start + 449ms, false), "");
  EXPECT_EQ(blocks.Take(start + 450ms, false), kSegment + kSegment);
  EXPECT_EQ(blocks.RemainderDeadline(), std::nullopt);
  blocks.Add(kSegment + '\0' + "2", start + 450ms);
  EXPECT_EQ(blocks.Take(start + 450ms, true), kSegment + '\0' + "2");
}

}  // namespace
}  // namespace korvanta

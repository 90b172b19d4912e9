#include "protocol/block_assembler.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace korvanta {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

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

std::string Text(std::string_view literal_with_bars) {
  std::string text(literal_with_bars);
  std::replace(text.begin(), text.end(), '|', '\0');
  return text;
}

const std::string kSession = Text(
    "[con]Ann\x01"
    "7|[onl]Ann\x02"
    "Ben||[msg]cht\x01hello|[tim]30|");

TEST(BlockAssembler, WholeMessagesComeOutWhereverTheStreamIsCut) {
  for (std::size_t cut = 0; cut <= kSession.size(); ++cut) {
    Stream stream;
    std::string all;
    stream.Add(std::string_view(kSession).substr(0, cut));
    std::vector<std::string> blocks = stream.Take();
    stream.now += BlockAssembler::kRestWait - 1ms;
    stream.Add(std::string_view(kSession).substr(cut));
    for (const std::string& block : stream.Take()) {
      blocks.push_back(block);
    }
    for (const std::string& block : blocks) {
      EXPECT_EQ(block.back(), '\0') << "cut at " << cut;
      all += block;
    }
    EXPECT_EQ(all, kSession) << "cut at " << cut;
  }
}

TEST(BlockAssembler, WholeMessagesComeOutOfAStreamOfSingleBytes) {
  Stream stream;
  std::vector<std::string> blocks;
  for (const char byte : kSession) {
    stream.Add({&byte, 1});
    for (const std::string& block : stream.Take()) {
      blocks.push_back(block);
    }
    stream.now += BlockAssembler::kRestWait - 1ms;
  }
  EXPECT_THAT(blocks, ElementsAre(Text("[con]Ann\x01"
                                       "7|"),
                                  Text("[onl]Ann\x02"
                                       "Ben|"),
                                  Text("|"), Text("[msg]cht\x01hello|"), Text("[tim]30|")));
}

TEST(BlockAssembler, RestIsGivenUpAfterItsWaitAndNotBefore) {
  Stream stream;
  stream.Add(Text("[a]1|[b]"));
  EXPECT_THAT(stream.Take(), ElementsAre(Text("[a]1|")));
  stream.now += 200ms;
  stream.Add("2");
  EXPECT_EQ(stream.blocks.RestDue(), stream.now + 250ms);
  stream.now += 249ms;
  EXPECT_THAT(stream.Take(), IsEmpty());
  stream.now += 1ms;
  EXPECT_THAT(stream.Take(), ElementsAre("[b]2"));
  EXPECT_EQ(stream.blocks.RestDue(), std::nullopt);
  stream.Add(Text("3|"));
  EXPECT_THAT(stream.Take(), ElementsAre(Text("3|")));
}

TEST(BlockAssembler, AtTheEndTheRestFollowsTheWholeMessages) {
  Stream stream;
  stream.Add(Text("[a]1|[b]2"));
  EXPECT_THAT(stream.Take(true), ElementsAre(Text("[a]1|"), "[b]2"));
  EXPECT_THAT(stream.Take(true), IsEmpty());
}

TEST(BlockAssembler, ManyMessagesAreCutBetweenMessagesAtTheBlockLimit) {
  const std::string message = std::string(999, 'x') + '\0';
  Stream stream;
  for (int i = 0; i < 200; ++i) {
    stream.Add(message);
  }
  EXPECT_THAT(stream.TakeLengths(), ElementsAre(65'000, 65'000, 65'000, 5'000));
}

TEST(BlockAssembler, LongMessagesStayWholeUpToTheRestLimit) {
  const std::pair<std::size_t, std::vector<std::size_t>> cases[] = {
      {kBlockLimit, {kBlockLimit, 4}},
      {kBlockLimit + 1, {kBlockLimit + 1, 4}},
      {kRestLimit, {kRestLimit, 4}},
      {kRestLimit + 1, {kRestLimit, 5}}};
  for (const auto& [length, blocks] : cases) {
    const std::string bytes = std::string(length - 1, 'x') + '\0' + Text("[a]|");
    Stream at_once;
    at_once.Add(bytes);
    EXPECT_EQ(at_once.TakeLengths(), blocks) << length;
  }
}

TEST(BlockAssembler, EndlessRestIsHandedOutAtItsLimit) {
  Stream stream;
  std::vector<std::size_t> lengths;
  const std::string slice(64 * 1024, 'x');
  for (int i = 0; i < 40; ++i) {
    stream.Add(slice);
    for (const std::size_t length : stream.TakeLengths()) {
      lengths.push_back(length);
    }
  }
  EXPECT_THAT(lengths, ElementsAre(kRestLimit, kRestLimit));
}

}  // namespace
}  // namespace korvanta

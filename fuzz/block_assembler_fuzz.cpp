/// Fuzz target: the cutting of received bytes into blocks, wherever they were cut on their way.
#include <algorithm>
#include <string>

#include "fuzz/input.h"
#include "protocol/block_assembler.h"
#include "protocol/wire_format.h"

namespace korvanta::fuzz {
namespace {

constexpr std::size_t kLongestStream = 4 * BlockAssembler::kRemainderLimit;

class Stream {
 public:
  void Act(Event event) {
    switch (event.letter) {
      case 'T':
        now_ += std::chrono::milliseconds(event.TakeNumber());
        return TakeAll(false);
      case 'F': {  // so much that it comes in several parts
        const std::size_t length = event.TakeNumber() * 1024;
        return Add(std::string(length, 'x').append(event.text));
      }
      case 'E':
        return TakeAll(true);
      default:
        return Add(event.text);
    }
  }

  void End() {
    TakeAll(true);
    Check(waiting_.empty(), "at the end everything is handed out");
  }

 private:
  void Add(std::string_view bytes) {
    bytes = bytes.substr(0, kLongestStream - std::min(length_, kLongestStream));
    length_ += bytes.size();
    do {
      const std::string_view arrival = bytes.substr(0, BlockAssembler::kBlockLimit);
      bytes.remove_prefix(arrival.size());
      blocks_.Add(arrival, now_);
      waiting_ += arrival;
      if (!arrival.empty()) {
        is_whole_ = arrival.size() < BlockAssembler::kSmallestSegment && !goes_on_;
        goes_on_ = arrival.size() == BlockAssembler::kBlockLimit;
        last_byte_ = now_;
      }
      TakeAll(false);
    } while (!bytes.empty());
  }

  void TakeAll(bool at_end) {
    while (Take(at_end)) {
    }
    Check(waiting_.empty() || !is_whole_, "what was not cut does not wait");
    Check(waiting_.find(kMessageTerminator) == std::string::npos, "no whole message waits");
    Check(waiting_.size() < BlockAssembler::kRemainderLimit, "what waits is bounded");
    Check(blocks_.RemainderDeadline().has_value() == !waiting_.empty(), "a rest has a deadline");
    Check(waiting_.empty() ||
              blocks_.RemainderDeadline() == last_byte_ + BlockAssembler::kRemainderWait,
          "which counts from its last byte");
  }

  /// Whether there was a block.
  bool Take(bool at_end) {
    const std::size_t end = waiting_.find(kMessageTerminator);
    const bool is_due = is_whole_ || at_end || end != std::string::npos ||
                        waiting_.size() >= BlockAssembler::kRemainderLimit ||
                        now_ >= last_byte_ + BlockAssembler::kRemainderWait;
    const std::string block = blocks_.Take(now_, at_end);
    Check(block.empty() == (waiting_.empty() || !is_due), "a block comes when one is due");
    Check(waiting_.starts_with(block), "the stream stays as it is");
    Check(block.size() <= BlockAssembler::kRemainderLimit,
          "no block is longer than the longest rest");
    Check(block.size() <= BlockAssembler::kBlockLimit || end >= block.size() - 1,
          "a long block is one message");
    Check(block.empty() || block.size() == waiting_.size() || block.ends_with(kMessageTerminator) ||
              block.size() == BlockAssembler::kRemainderLimit,
          "no block ends inside a message that goes on");
    waiting_.erase(0, block.size());
    return !block.empty();
  }

  BlockAssembler blocks_;
  BlockAssembler::Time now_{std::chrono::hours(1)};
  BlockAssembler::Time last_byte_{};
  std::string waiting_;   ///< added and not yet handed out
  bool is_whole_ = true;  ///< the last arrival cannot have been cut
  bool goes_on_ = false;  ///< in the next arrival
  std::size_t length_ = 0;
};

}  // namespace
}  // namespace korvanta::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  Stream stream;
  for (Events events(AsText(data, size)); !events.AtEnd();) {
    stream.Act(events.Next());
  }
  stream.End();
  return 0;
}

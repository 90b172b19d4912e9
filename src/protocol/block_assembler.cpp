#include "protocol/block_assembler.h"

#include <algorithm>

#include "protocol/wire_format.h"

namespace korvanta {

void BlockAssembler::Add(std::string_view bytes, Time now) {
  if (bytes.empty()) {
    return;
  }
  const bool may_be_cut = bytes.size() >= kSmallestSegment || last_arrival_ >= kBlockLimit;
  if (!may_be_cut) {
    due_ = bytes_.size() + bytes.size();
  } else if (const std::size_t last = bytes.rfind(kMessageTerminator);
             last != std::string_view::npos) {
    due_ = bytes_.size() + last + 1;
  }
  bytes_.append(bytes);
  last_arrival_ = bytes.size();
  last_byte_ = now;
}

std::string BlockAssembler::Take(Time now, bool at_end) {
  const std::size_t length = NextLength(now, at_end);
  std::string block;
  if (length == bytes_.size()) {
    block.swap(bytes_);
  } else {
    block = bytes_.substr(0, length);
    bytes_.erase(0, length);
  }
  due_ -= std::min(length, due_);
  return block;
}

std::optional<BlockAssembler::Time> BlockAssembler::RemainderDeadline() const {
  if (HasBlock() || bytes_.empty()) {
    return std::nullopt;
  }
  return last_byte_ + kRemainderWait;
}

std::size_t BlockAssembler::NextLength(Time now, bool at_end) const {
  const bool is_remainder_due =
      due_ == 0 && (bytes_.size() >= kRemainderLimit || now >= last_byte_ + kRemainderWait);
  const std::size_t due = at_end || is_remainder_due ? bytes_.size() : due_;
  if (due <= kBlockLimit) {
    return due;
  }
  std::size_t last = bytes_.rfind(kMessageTerminator, kBlockLimit - 1);
  if (last == std::string::npos) {
    last = bytes_.find(kMessageTerminator, kBlockLimit);
  }
  return std::min(last == std::string::npos ? due : last + 1, kRemainderLimit);
}

}  // namespace korvanta

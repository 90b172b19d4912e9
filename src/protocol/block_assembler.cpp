#include "protocol/block_assembler.h"

#include <algorithm>

#include "protocol/wire_format.h"

namespace korvanta {

void BlockAssembler::Add(std::string_view bytes, Time now) {
  if (bytes.empty()) {
    return;
  }
  if (const std::size_t last = bytes.rfind(kMessageTerminator); last != std::string_view::npos) {
    complete_ = bytes_.size() + last + 1;
  }
  bytes_.append(bytes);
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
  complete_ -= std::min(length, complete_);
  return block;
}

std::optional<BlockAssembler::Time> BlockAssembler::RestDue() const {
  if (HasBlock() || bytes_.empty()) {
    return std::nullopt;
  }
  return last_byte_ + kRestWait;
}

std::size_t BlockAssembler::NextLength(Time now, bool at_end) const {
  if (complete_ > 0 && complete_ <= kBlockLimit) {
    return complete_;
  }
  if (complete_ > 0) {
    std::size_t last = bytes_.rfind(kMessageTerminator, kBlockLimit - 1);
    if (last == std::string::npos) {
      last = bytes_.find(kMessageTerminator, kBlockLimit);
    }
    return std::min(last + 1, kRestLimit);
  }
  const bool is_due = at_end || bytes_.size() >= kRestLimit || now >= last_byte_ + kRestWait;
  return is_due ? std::min(bytes_.size(), kRestLimit) : 0;
}

}  // namespace korvanta

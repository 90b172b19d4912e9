#include "practice/wire/message_stream.h"

#include <algorithm>

#include "protocol/wire_format.h"

namespace korvanta::practice {

void MessageStream::Append(std::string_view bytes) {
  bytes_.erase(0, start_);
  scanned_ -= start_;
  start_ = 0;
  bytes_ += bytes;
}

std::optional<std::string> MessageStream::Next() {
  if (broken_) {
    return std::nullopt;
  }
  const std::size_t end = bytes_.find(kMessageTerminator, scanned_);
  scanned_ = std::min(end, bytes_.size());
  if (scanned_ - start_ > kLongestMessage) {
    broken_ = true;
    return std::nullopt;
  }
  if (end == std::string::npos) {
    return std::nullopt;
  }
  std::string message = bytes_.substr(start_, end - start_);
  start_ = scanned_ = end + 1;
  return message;
}

}  // namespace korvanta::practice

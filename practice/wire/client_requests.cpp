#include "practice/wire/client_requests.h"

#include <algorithm>

#include "practice/base/player_text.h"

namespace korvanta::practice {

std::optional<std::string> MessageStream::Next() {
  const std::size_t end = bytes_.find(kMessageTerminator);
  is_broken_ = std::min(end, bytes_.size()) > kLongestMessage;
  if (is_broken_ || end == std::string::npos) {
    return std::nullopt;
  }
  std::string message = bytes_.substr(0, end);
  bytes_.erase(0, end + 1);
  return message;
}

std::optional<ClientRequest> ReadRequest(std::string_view message) {
  const auto* row = FindRow(kClientMessages, message);
  if (row == nullptr) {
    return std::nullopt;
  }
  ClientRequest request{row->message, {}};
  const std::string_view payload = message.substr(row->tag.size());
  const std::size_t count = row->fields.size();
  if (count == 1) {
    request.fields.push_back(WithoutControls(payload));
    return request;
  }
  for (std::string_view field : Split(payload, kFieldSeparator)) {
    if (request.fields.size() < count) {
      request.fields.push_back(WithoutControls(field));
    }
  }
  request.is_complete = request.fields.size() == count;
  return request;
}

}  // namespace korvanta::practice

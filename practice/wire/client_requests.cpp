#include "practice/wire/client_requests.h"

#include <cstddef>

#include "practice/base/player_text.h"

namespace korvanta::practice {

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
    if (request.fields.size() == count) {
      break;
    }
    request.fields.push_back(WithoutControls(field));
  }
  if (request.fields.size() < count) {
    request.fields.clear();
    request.is_complete = false;
  }
  return request;
}

}  // namespace korvanta::practice

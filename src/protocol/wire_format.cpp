#include "protocol/wire_format.h"

namespace korvanta {

std::string BuildMessage(std::string_view tag, std::initializer_list<std::string_view> fields) {
  std::size_t size = tag.size() + fields.size() + 1;
  for (std::string_view field : fields) {
    size += field.size();
  }
  std::string message;
  message.reserve(size);
  message += tag;
  bool first = true;
  for (std::string_view field : fields) {
    if (!first) {
      message += kFieldSeparator;
    }
    message += field;
    first = false;
  }
  message += kMessageTerminator;
  return message;
}

Split::Iterator::Iterator(std::string_view text, char separator)
    : rest_(text), separator_(separator), last_(false), done_(false) {
  if (text.empty()) {
    done_ = true;
  } else {
    ++*this;
  }
}

Split::Iterator& Split::Iterator::operator++() {
  if (last_) {
    done_ = true;
    return *this;
  }
  const std::size_t at = rest_.find(separator_);
  piece_ = rest_.substr(0, at);
  last_ = at == std::string_view::npos;
  rest_.remove_prefix(last_ ? rest_.size() : at + 1);
  return *this;
}

Split::Iterator Split::Iterator::operator++(int) {
  Iterator before = *this;
  ++*this;
  return before;
}

}  // namespace korvanta

/// The messages of a server taken apart, so that mischief can be made with what they consist of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "protocol/message_table.h"

namespace korvanta::practice {

struct MischiefMessage {
  struct Field {
    std::string text;
    FieldRole role;
    char separator;  ///< in front of it, unless it is the first
  };

  /// The message without its terminator.
  explicit MischiefMessage(std::string_view message);
  /// The bytes to send.
  std::string Built() const;

  std::string tag;
  std::vector<Field> fields;
  bool is_ended = true;
  int times = 1;
};

}  // namespace korvanta::practice

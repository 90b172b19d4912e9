/// The messages of a server taken apart, so that mischief can be made with what they consist of.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta::practice {

struct MischiefMessage {
  enum class Role : std::uint8_t { Text, Number, Code };
  struct Field {
    std::string text;
    Role role;
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

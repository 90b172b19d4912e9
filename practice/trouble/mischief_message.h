/// The messages of a server taken apart, so that mischief can be made with what they consist of.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta::practice {

/// The fields of a message: t for a text, n for a number, c for a code word. The last stands for
/// all that follow.
struct MessageLayout {
  std::string_view tag;
  std::string_view fields;
  bool has_records = false;
  bool is_of_game = false;  ///< only a game that runs brings it
};

/// Every message that a server can send.
std::span<const MessageLayout> MessageLayouts();

/// Null for a message that no server sends.
const MessageLayout* LayoutOf(std::string_view message);

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

/// The reading of a fuzzer's input as a row of events, and the check that every target makes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <span>
#include <string>
#include <string_view>

namespace korvanta::fuzz {

/// Ends the program, which the fuzzer records as a find, unless `holds`.
inline void Check(bool holds, std::string_view what) {
  if (!holds) {
    std::fprintf(stderr, "BROKEN: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
  }
}

/// One event: a letter and what belongs to it.
struct Event {
  char letter;
  std::string_view text;

  /// Takes the next byte of the text as a number; 0 at its end.
  std::size_t TakeNumber() {
    if (text.empty()) {
      return 0;
    }
    const auto number = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    return number;
  }
};

/// The input cut into events. The end of an event is a byte that no text in it holds as it is, so
/// that the fuzzer's cutting and splicing mostly makes whole events again. In texts that byte is
/// written as the escape and '1', the escape itself as the escape and '0' or by itself.
class Events {
 public:
  static constexpr char kEnd = '\xff';
  static constexpr char kEscape = '\xfe';

  explicit Events(std::string_view input) : rest_(input) {}

  bool AtEnd() const { return rest_.empty(); }

  /// Not at the end. The event's text lasts as long as the input and this object.
  Event Next() {
    std::string_view event = rest_.substr(0, rest_.find(kEnd));
    rest_.remove_prefix(event.size() == rest_.size() ? event.size() : event.size() + 1);
    if (event.find(kEscape) != std::string_view::npos) {
      event = unescaped_.emplace_back(Unescaped(event));
    }
    return event.empty() ? Event{'\0', {}} : Event{event.front(), event.substr(1)};
  }

  /// What to write for an event of any bytes.
  static std::string Written(std::string_view event) {
    std::string written;
    for (const char byte : event) {
      if (byte == kEnd || byte == kEscape) {
        written += kEscape;
        written += byte == kEnd ? '1' : '0';
      } else {
        written += byte;
      }
    }
    return written + kEnd;
  }

 private:
  static std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char next = i + 1 < text.size() ? text[i + 1] : '\0';
      const bool is_pair = text[i] == kEscape && (next == '0' || next == '1');
      plain += is_pair && next == '1' ? kEnd : text[i];
      i += is_pair ? 1 : 0;
    }
    return plain;
  }

  std::string_view rest_;
  std::deque<std::string> unescaped_;
};

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Plays an input against a target, which its first byte sets up: every event behind that happens
/// to it.
template <typename Make>
int Play(const std::uint8_t* data, std::size_t size, Make make_target) {
  if (size > 0) {
    auto target = make_target(std::size_t{*data});
    for (Events events(AsText(data + 1, size - 1)); !events.AtEnd();) {
      target->Act(events.Next());
    }
  }
  return 0;
}

/// The row of `table` that has this letter; for other letters any one, always the same.
template <typename Row>
const Row& RowFor(std::span<const Row> table, char letter) {
  for (const Row& row : table) {
    if (row.letter == letter) {
      return row;
    }
  }
  return table[static_cast<unsigned char>(letter) % table.size()];
}

}  // namespace korvanta::fuzz

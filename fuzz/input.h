/// The reading of a fuzzer's input as a row of events, and the check that every target makes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
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

/// The input cut into events. The end of an event is a byte that no text in it can hold, so that
/// the fuzzer's cutting and splicing mostly makes whole events again.
class Events {
 public:
  static constexpr char kEnd = '\xff';

  explicit Events(std::string_view input) : rest_(input) {}

  bool AtEnd() const { return rest_.empty(); }

  /// Not at the end.
  Event Next() {
    const std::string_view event = rest_.substr(0, rest_.find(kEnd));
    rest_.remove_prefix(event.size() == rest_.size() ? event.size() : event.size() + 1);
    return event.empty() ? Event{'\0', {}} : Event{event.front(), event.substr(1)};
  }

 private:
  std::string_view rest_;
};

inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
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

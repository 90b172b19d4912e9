/// The reading of a fuzzer's input as a row of events, and the check that every target makes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
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

/// The input cut into events, each with `kEnd` behind it: two bytes that hardly any text holds, so
/// that the fuzzer's cutting and splicing mostly makes whole events again.
class Events {
 public:
  static constexpr std::string_view kEnd = "\xff\n";

  Events(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool AtEnd() const { return rest_.empty(); }

  /// The next one; without letter and text when there is none. Its text lasts as long as the input.
  Event Next() {
    const std::string_view event = rest_.substr(0, rest_.find(kEnd));
    rest_.remove_prefix(std::min(rest_.size(), event.size() + kEnd.size()));
    return event.empty() ? Event{'\0', {}} : Event{event.front(), event.substr(1)};
  }

 private:
  std::string_view rest_;
};

/// Plays an input against a target that the letter of its first event sets up: every later event
/// happens to it.
template <typename Make>
int Play(const std::uint8_t* data, std::size_t size, Make make_target) {
  Events events(data, size);
  for (auto target = make_target(events.Next().letter); !events.AtEnd();) {
    target.Act(events.Next());
  }
  return 0;
}

}  // namespace korvanta::fuzz

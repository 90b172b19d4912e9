/// The chat lines that a benchmark's server sends, all at once or at an even pace.
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "bench/program/figures.h"
#include "harness/scripted_server.h"
#include "protocol/message_table.h"

namespace korvanta::bench {

/// `count` times a chat line of 75 characters in two colours, as the server sends it, with its
/// terminator.
inline std::string ChatLines(std::size_t count) {
  const std::string line = BuildMessage<ServerMessage::ChatLine>(
      "cht", "Marlow: keep your defense up, I go for Industry and then we both take Corin",
      "False");
  std::string lines;
  lines.reserve(count * line.size());
  for (std::size_t i = 0; i < count; ++i) {
    lines += line;
  }
  return lines;
}

/// Sends as long as it exists; the server must outlive it.
class Feed {
 public:
  /// Whole thousands a second; 0 sends nothing.
  Feed(const harness::ScriptedServer& server, std::size_t lines_a_second)
      : thread_([this, &server, lines = ChatLines(lines_a_second / 1000)] {
          for (auto due = Clock::now(); !stop_; due += std::chrono::milliseconds(1)) {
            std::this_thread::sleep_until(due);
            server.Send(lines);
            ++times_;
          }
        }),
        lines_at_a_time_(lines_a_second / 1000) {}
  ~Feed() { Stop(); }
  Feed(const Feed&) = delete;
  Feed& operator=(const Feed&) = delete;

  /// Ends the sending; returns how many lines were sent in all.
  std::size_t Stop() {
    stop_ = true;
    if (thread_.joinable()) {
      thread_.join();
    }
    return times_ * lines_at_a_time_;
  }

 private:
  std::atomic<bool> stop_ = false;
  std::size_t times_ = 0;  // used by the thread alone until it has ended
  std::thread thread_;
  std::size_t lines_at_a_time_;
};

}  // namespace korvanta::bench

/// Chat lines at an even pace.
#pragma once

#include <atomic>
#include <thread>

#include "bench/program/game_server.h"

namespace korvanta::bench {

/// Sends for as long as it lives; the server outlives it.
class Feed {
 public:
  /// Whole thousands a second; 0 sends nothing.
  Feed(const GameServer& server, std::size_t lines_a_second)
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
  std::size_t times_ = 0;  // the thread's own until it has ended
  std::thread thread_;
  std::size_t lines_at_a_time_;
};

}  // namespace korvanta::bench

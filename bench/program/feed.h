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
          }
        }) {}
  ~Feed() {
    stop_ = true;
    thread_.join();
  }
  Feed(const Feed&) = delete;
  Feed& operator=(const Feed&) = delete;

 private:
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

}  // namespace korvanta::bench

/// Hand-written fakes of everything under src/platform/: they record what the client does and do
/// nothing by themselves. Time passes only when a test ticks a timer.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"

namespace korvanta::fakes {

/// Messages in readable form: the field separator as ',', the terminator as ';'.
inline std::string Readable(std::string messages) {
  std::ranges::replace(messages, '\1', ',');
  std::ranges::replace(messages, '\0', ';');
  return messages;
}

/// A socket whose peer is the test.
struct FakeSocket : ClientSocket {
  void Close() override {
    ++closes;
    connected = is_attempting = false;
  }
  void Connect(const std::string& host, std::uint16_t port) override {
    attempts.emplace_back(host, port);
    is_attempting = true;
  }
  void Send(std::string_view text) override {
    sent.emplace_back(text);
    if (on_send) {
      on_send(text);
    }
  }
  bool IsConnected() const override { return connected; }
  void Drain() override {
    if (on_drain) {
      on_drain();
    }
  }

  /// The attempt succeeds.
  void Accept() {
    is_attempting = false;
    connected = true;
    on_connected();
  }
  void Receive(std::string_view block) const { on_data_arrival(block); }
  /// The server closes the connection.
  void Hangup() {
    connected = false;
    on_closed();
  }
  /// Everything sent since the last call.
  std::vector<std::string> TakeSent() { return std::exchange(sent, {}); }
  /// The same in one text.
  std::string TakeReadable() {
    const auto messages = TakeSent();
    return Readable(std::accumulate(messages.begin(), messages.end(), std::string()));
  }

  bool is_attempting = false;
  bool connected = false;
  int closes = 0;
  std::function<void(std::string_view text)> on_send;
  std::function<void()> on_drain;
  std::vector<std::pair<std::string, std::uint16_t>> attempts;
  std::vector<std::string> sent;
};

struct FakeTimer : Timer {
  void SetEnabled(bool on) override { enabled = on; }
  bool IsEnabled() const override { return enabled; }

  bool enabled = false;
};

/// Keeps a view of every timer made, in order; the owner must outlive the use of it.
struct FakeTimers : TimerFactory {
  std::unique_ptr<Timer> MakeTimer(std::chrono::milliseconds interval) override {
    auto timer = std::make_unique<FakeTimer>();
    made.emplace_back(interval, timer.get());
    return timer;
  }

  /// The enabled timers of that interval tick once, in the order in which they were made.
  void Tick(std::chrono::milliseconds interval) {
    for (std::size_t i = 0; i < made.size(); ++i) {
      if (made[i].first == interval && made[i].second->enabled) {
        made[i].second->on_tick();
      }
    }
  }

  std::vector<std::pair<std::chrono::milliseconds, FakeTimer*>> made;
};

/// Settings in memory.
struct MemorySettings : SettingsStore {
  std::string Get(std::string_view section, std::string_view key,
                  std::string_view default_text) override {
    const auto entry = entries.find(Name(section, key));
    return entry == entries.end() ? std::string(default_text) : entry->second;
  }
  void Save(std::string_view section, std::string_view key, std::string_view text) override {
    entries[Name(section, key)] = text;
    if (on_save) {
      on_save();
    }
  }
  std::string Commit() override {
    ++commits;
    return commit_error;
  }

  static std::string Name(std::string_view section, std::string_view key) {
    return std::string(section) + " > " + std::string(key);
  }

  std::map<std::string, std::string> entries;  ///< by "Section > Key"
  std::function<void()> on_save;
  int commits = 0;
  std::string commit_error;
};

struct RecordingSounds : SoundPlayer {
  void Play(std::string_view file) override { played.emplace_back(file); }

  std::vector<std::string> played;
};

/// A desktop that takes addresses and says what became of them when the test says so.
struct FakeWeb : WebOpener {
  void Open(std::string_view address, std::function<void(int code)> done) override {
    opened.emplace_back(address);
    pending.push_back(std::move(done));
  }

  /// Every address without an answer gets this one.
  void Answer(int code) {
    for (const auto& done : std::exchange(pending, {})) {
      done(code);
    }
  }

  std::vector<std::string> opened;
  std::vector<std::function<void(int code)>> pending;
};

/// Records each box as "title: text", with " (!)" or " (x)" behind it for the icons of an
/// exclamation and of a critical error; questions get the next scripted answer.
struct FakeMessageBox : MessageBox {
  void Show(std::string_view text, std::string_view title, MessageIcon icon) override {
    constexpr const char* kIcons[] = {"", " (!)", " (x)"};
    shown.push_back(std::string(title) + ": " + std::string(text) +
                    kIcons[static_cast<std::size_t>(icon)]);
    if (meanwhile) {
      meanwhile();
    }
  }
  bool Ask(std::string_view text, std::string_view title) override {
    asked.push_back(std::string(title) + ": " + std::string(text));
    if (meanwhile) {
      meanwhile();
    }
    if (answers.empty()) {
      throw std::logic_error("a question that the test did not expect: " + asked.back());
    }
    const bool answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  }

  std::vector<std::string> shown;
  std::vector<std::string> asked;
  std::vector<bool> answers;
  std::function<void()> meanwhile;  ///< happens while a box stands open
};

struct FakeInstance : InstanceGuard {
  bool IsAnotherRunning() override { return another_runs; }

  bool another_runs = false;
};

/// All of them, as the bundle that a client takes.
struct FakePlatform {
  FakeSocket socket;
  FakeTimers timers;
  MemorySettings settings;
  RecordingSounds sounds;
  FakeWeb web;
  FakeMessageBox message_box;
  FakeInstance instance;

  Platform platform() { return {socket, timers, settings, sounds, web, message_box, instance}; }
};

}  // namespace korvanta::fakes
